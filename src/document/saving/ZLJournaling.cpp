#include "document/saving/ZLJournaling.h"

#include "document/saving/ZLKeepableContent.h"
#include "document/saving/ZLSilentDisk.h"

#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(journalingLog, "zelta.document.save", QtInfoMsg)

}

ZLJournaling::ZLJournaling(ZLChapterDocument& document, ZLDocumentPlace& place, const ZLKnownFile& knownFile,
    ZLDiskWatch& diskWatch, ZLJournalDisk disk)
    : m_document(document)
    , m_place(place)
    , m_knownFile(knownFile)
    , m_diskWatch(diskWatch)
    , m_journal(document, std::move(disk))
{
    m_retryTimer.setInterval(RetryInterval);
    connect(&m_retryTimer, &QTimer::timeout, this, &ZLJournaling::retryIsDue);
}

void ZLJournaling::note()
{
    if (!isWanted() || !isDue())
        return;
    // A disk that does not answer, or has not yet, is not asked anything else either.
    const bool isBusy = m_journal.isLagging() || m_journal.isHandingOver();
    const bool isHeld = m_place.recoveryFile() && (isBusy || m_place.recoveryFile()->isStillHeld());
    if (!m_journal.isBegun() || !isHeld)
        begin();
    else
        m_journal.note();
    followDiskWatch();
    m_diskWatch.begin();
}

bool ZLJournaling::isWanted() const
{
    return !m_place.isUntitled() || ZLKeepableContent::isIn(m_document);
}

bool ZLJournaling::isDue()
{
    // Looked at each time, since looking remembers. A document that was only opened takes no journal.
    const bool hasChanged = !m_journal.isBegun() && m_journal.noticeChange();
    m_isDue = m_isDue || hasChanged || m_document.isRecording() || m_document.interruptedRecording();
    return m_isDue;
}

void ZLJournaling::begin()
{
    m_isDue = true;
    if (const ZLStatus ensured = ensureRecoveryFile(); !ensured) {
        setFailureText(ensured.error().message);
        return;
    }
    m_journal.begin(m_place.recoveryFile()->journalPath(), m_place.path(), m_knownFile.versions());
}

void ZLJournaling::retry()
{
    // As long as nothing changed, there is nothing to journal.
    if (!isWanted() || (!m_journal.isBegun() && m_failureText.isEmpty()))
        return;
    note();
    // What this brings is known when the next change or attempt comes, for the program waits for no disk.
    m_journal.tidy(m_knownFile.versions());
}

void ZLJournaling::followDiskWatch()
{
    if (!m_journal.isBegun())
        return;
    const bool isHanging = m_diskWatch.isJournalHanging();
    setFailureText(isHanging ? ZLSilentDisk::error(m_place.recoveryFolderPath()).message : m_journal.failureText());
}

void ZLJournaling::setFailureText(const QString& text)
{
    if (text.isEmpty())
        m_retryTimer.stop();
    else if (!m_retryTimer.isActive())
        m_retryTimer.start();
    if (std::exchange(m_failureText, text) == text)
        return;
    if (!text.isEmpty())
        qCWarning(journalingLog) << "no journal:" << text;
    Q_EMIT failureTextDidChange();
}

ZLStatus ZLJournaling::ensureRecoveryFile()
{
    // When the folder was taken away, the lock went with it: both are made anew.
    if (m_place.recoveryFile() && m_place.recoveryFile()->isStillHeld())
        return ZLDone {};
    m_journal.end(patience());
    return m_place.takeRecoveryFile();
}

void ZLJournaling::removeRecoveryFile()
{
    setFailureText({});
    if (!m_place.recoveryFile())
        return;
    m_journal.end(patience());
    // What the document is now needs no journal; what it becomes does.
    (void)m_journal.noticeChange();
    m_isDue = false;
    m_place.removeRecoveryFile();
}

bool ZLJournaling::end(QDeadlineTimer deadline)
{
    return m_journal.end(m_diskWatch.isJournalHanging() ? QDeadlineTimer() : deadline);
}

QDeadlineTimer ZLJournaling::patience() const
{
    return m_journal.isLagging() ? QDeadlineTimer() : QDeadlineTimer(ZLSilentDisk::CommandPatience);
}

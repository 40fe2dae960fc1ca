#include "document/saving/ZLDocumentJournal.h"

#include <utility>

ZLDocumentJournal::ZLDocumentJournal(ZLChapterDocument& document, ZLJournalDisk disk)
    : m_document(document)
    , m_disk(std::move(disk))
    , m_chapters(document.chapterManager())
    , m_templates(document.templateViewController().chapterManager())
{
    m_tickTimer.setInterval(TickInterval);
    connect(&m_tickTimer, &QTimer::timeout, this, &ZLDocumentJournal::noteReading);
    connect(&document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        if (change.concerns(ZLDocumentChange::Recording))
            followClock();
    });
    followClock();
    rememberDocument();
}

void ZLDocumentJournal::begin(
    const QString& journalPath, const QString& filePath, const ZLKnownVersions& versions, const QByteArray& snapshot)
{
    m_file = std::make_shared<ZLJournalFile>(journalPath, m_disk);
    m_filePath = filePath;
    beginFile(versions, snapshot);
    m_file->waitUntilHandedOver(m_disk.longestHandOver);
}

void ZLDocumentJournal::tidy(const ZLKnownVersions& versions)
{
    if (!m_file || (!m_file->isBroken() && m_file->size() <= std::max(SmallSize, 4 * m_snapshotSize)))
        return;
    note();
    beginFile(versions, m_document.dataOfType());
}

bool ZLDocumentJournal::end(QDeadlineTimer deadline)
{
    return !m_file || ZLJournalFile::leave(std::exchange(m_file, nullptr), deadline);
}

bool ZLDocumentJournal::noticeChange()
{
    const bool areChaptersOther = m_chapters.takeDifference().has_value();
    const bool areTemplatesOther = m_templates.takeDifference().has_value();
    const bool areExtrasOther = m_document.extras().takeDifference().has_value();
    const ClockState clock = clockState();
    return std::exchange(m_clock, clock) != clock || areChaptersOther || areTemplatesOther
        || areExtrasOther;
}

void ZLDocumentJournal::note()
{
    if (!m_file)
        return;
    auto chapters = m_chapters.takeDifference();
    auto templates = m_templates.takeDifference();
    auto extras = m_document.extras().takeDifference();
    const ClockState clock = clockState();
    if (std::exchange(m_clock, clock) == clock && !chapters && !templates && !extras)
        return;
    ZLJournalChange change = readingNow();
    change.chapters = std::move(chapters);
    change.templates = std::move(templates);
    change.extras = std::move(extras);
    m_file->append({ ZLJournalRecord::Kind::Change, change.encoded() }, ZLJournalFile::Sync::AtOnce);
    m_file->waitUntilHandedOver(m_disk.longestHandOver);
}

ZLDocumentJournal::ClockState ZLDocumentJournal::clockState() const
{
    return { .isRunning = m_document.isRecording(),
        .startTime = m_document.startTime(),
        .duration = m_document.duration(),
        .interruption = m_document.interruptedRecording() };
}

void ZLDocumentJournal::followClock()
{
    if (!m_document.isRecording())
        m_tickTimer.stop();
    else if (!m_tickTimer.isActive())
        m_tickTimer.start();
}

void ZLDocumentJournal::noteReading()
{
    if (!m_file || !m_document.isRecording())
        return;
    const bool isSyncDue = ++m_ticks % TicksPerSync == 0;
    m_file->append({ ZLJournalRecord::Kind::Change, readingNow().encoded() },
        isSyncDue ? ZLJournalFile::Sync::AtOnce : ZLJournalFile::Sync::WithTheNext);
}

void ZLDocumentJournal::rememberDocument()
{
    (void)noticeChange();
}

ZLJournalChange ZLDocumentJournal::readingNow() const
{
    ZLJournalChange change { .reading = m_document.currentDuration(), .running = m_document.interruptedRecording() };
    if (m_document.isRecording())
        change.running = ZLInterruptedRecording { .reading = change.reading, .lastSeen = m_document.wallClockTime() };
    return change;
}

void ZLDocumentJournal::beginFile(const ZLKnownVersions& versions, const QByteArray& snapshot)
{
    using Kind = ZLJournalRecord::Kind;
    rememberDocument();
    m_snapshotSize = snapshot.size();
    QList<ZLJournalRecord> records { { Kind::Origin, m_filePath.toUtf8() }, { Kind::Snapshot, snapshot } };
    const auto digests = versions.value_or(QList<QByteArray>());
    for (const QByteArray& digest : digests)
        records.append({ Kind::KnownFile, digest });
    records.append({ Kind::Change, readingNow().encoded() });
    m_file->begin(records);
}

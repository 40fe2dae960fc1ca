#include "document/saving/journal/ZLDocumentJournal.h"

#include <QRandomGenerator>

#include <limits>
#include <utility>

ZLDocumentJournal::ZLDocumentJournal(ZLChapterDocument& document, ZLJournalDisk disk)
    : m_document(document)
    , m_disk(std::move(disk))
    , m_number(QRandomGenerator::system()->bounded(1, std::numeric_limits<qint64>::max() / 2))
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

void ZLDocumentJournal::setBase(const QByteArray& bytes)
{
    rememberDocument();
    m_base.emplace(bytes);
    m_changeSinceBase.reset();
}

void ZLDocumentJournal::begin(const QString& journalPath, const QString& filePath, const ZLKnownVersions& versions)
{
    m_file = std::make_shared<ZLJournalFile>(journalPath, m_disk);
    m_tail.emplace(journalPath);
    m_filePath = filePath;
    waitForHandOver(beginFile(versions));
}

void ZLDocumentJournal::tidy(const ZLKnownVersions& versions)
{
    if (!m_file || (!m_file->isBroken() && m_file->size() <= std::max(SmallSize, 4 * m_file->sizeAtBeginning())))
        return;
    note();
    (void)beginFile(versions);
}

bool ZLDocumentJournal::end(QDeadlineTimer deadline)
{
    m_tail.reset();
    const bool hasEnded = !m_file || ZLJournalFile::leave(std::exchange(m_file, nullptr), deadline);
    m_longHandOver.end();
    return hasEnded;
}

bool ZLDocumentJournal::noticeChange()
{
    auto change = takeDifference();
    if (!change)
        return false;
    // What came in several steps would have to be put together, and so is told by a snapshot.
    if (m_changeSinceBase)
        m_base.reset();
    m_changeSinceBase = std::move(change);
    return true;
}

void ZLDocumentJournal::note()
{
    if (!m_file)
        return;
    auto change = takeDifference();
    if (!change)
        return;
    change->number = ++m_number;
    if (change->isLong()) {
        const auto makeRecord = [made = std::move(*change)] {
            return ZLJournalRecord { ZLJournalRecord::Kind::Change, made.encoded() };
        };
        m_file->append(makeRecord, ZLJournalFile::Sync::AtOnce);
        waitForHandOver(Length::Long);
    } else {
        append(*change, ZLJournalFile::Sync::AtOnce);
        waitForHandOver(Length::Short);
    }
}

void ZLDocumentJournal::waitForHandOver(Length length)
{
    // What stands behind a long one comes when that one has come.
    if (length == Length::Long || m_longHandOver.isUnderWay())
        m_longHandOver.follow(m_file);
    else
        m_file->waitUntilHandedOver(m_disk.longestHandOver);
}

std::optional<ZLJournalDifference> ZLDocumentJournal::takeDifference()
{
    auto chapters = m_chapters.takeDifference();
    auto templates = m_templates.takeDifference();
    auto extras = m_document.extras().takeDifference();
    const ClockState clock = clockState();
    if (std::exchange(m_clock, clock) == clock && !chapters && !templates && !extras)
        return std::nullopt;
    ZLJournalDifference change = readingNow();
    change.chapters = std::move(chapters);
    change.templates = std::move(templates);
    change.extras = std::move(extras);
    return change;
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
    ZLJournalDifference change = readingNow();
    change.number = ++m_number;
    append(change, isSyncDue ? ZLJournalFile::Sync::AtOnce : ZLJournalFile::Sync::WithTheNext);
}

void ZLDocumentJournal::append(const ZLJournalDifference& change, ZLJournalFile::Sync sync)
{
    const ZLJournalRecord record { ZLJournalRecord::Kind::Change, change.encoded() };
    m_tail->append(record, m_file->hasEverything());
    m_file->append(record, sync);
}

void ZLDocumentJournal::rememberDocument()
{
    (void)noticeChange();
}

ZLJournalDifference ZLDocumentJournal::readingNow() const
{
    ZLJournalDifference change { .reading = m_document.currentDuration(),
        .running = m_document.interruptedRecording() };
    if (m_document.isRecording())
        change.running = ZLInterruptedRecording { .reading = change.reading, .lastSeen = m_document.wallClockTime() };
    return change;
}

ZLDocumentJournal::Length ZLDocumentJournal::beginFile(const ZLKnownVersions& versions)
{
    using Kind = ZLJournalRecord::Kind;
    rememberDocument();
    QList<ZLJournalRecord> records { { Kind::Origin, m_filePath.toUtf8() } };
    const auto digests = versions.value_or(QList<QByteArray>());
    for (const QByteArray& digest : digests)
        records.append({ Kind::KnownFile, digest });
    const auto base = std::exchange(m_base, std::nullopt);
    const auto changeSinceBase = std::exchange(m_changeSinceBase, std::nullopt);
    ZLJournalDifference change = base && changeSinceBase ? *changeSinceBase : readingNow();
    change.number = m_number;
    const auto addAll = [records, change](const ZLJournalRecord& state) {
        QList<ZLJournalRecord> all = records;
        all.insert(1, state);
        all.append({ Kind::Change, change.encoded() });
        return all;
    };
    if (base)
        m_file->begin([addAll, base] { return addAll(base->record()); });
    else
        m_file->begin(
            [addAll, snapshot = m_document.snapshot()] { return addAll({ Kind::Snapshot, snapshot.encoded() }); });
    const qsizetype count =
        m_document.chapterManager().count() + m_document.templateViewController().chapterManager().count();
    return change.isLong() || count > ZLJournalDifference::MostChaptersWaitedFor ? Length::Long : Length::Short;
}

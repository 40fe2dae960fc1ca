#include "document/listening/ZLListeningJournal.h"

#include "document/saving/ZLSilentDisk.h"
#include "platform/ZLBoundedFile.h"

#include <QDataStream>
#include <QFile>
#include <QIODevice>

#include <algorithm>
#include <utility>

namespace {

constexpr auto recordVersion = QDataStream::Qt_6_0;
/// More breaks than an input has in a show.
constexpr quint32 mostSpans = 10000;
constexpr auto mostFrames = quint32(ZLListeningData::LongestShow / ZLSoundFingerprint::SecondsPerFrame);

/// The number of a span, its place as it is known by now, which of its frames come, and these.
ZLJournalRecord recordOf(std::size_t number, const ZLListeningSpan& span, std::size_t firstFrame)
{
    ZLJournalRecord record { ZLJournalRecord::Kind::Heard };
    QDataStream stream(&record.payload, QIODevice::WriteOnly);
    stream.setVersion(recordVersion);
    stream << quint32(number) << span.start << span.interval << quint32(firstFrame);
    for (std::size_t frame = firstFrame; frame < span.frames.size(); ++frame)
        stream << quint32(span.frames[frame]);
    return record;
}

/// False for one that does not fit what came before it. `formerFrames` counts those of the spans before the last one,
/// so that all together stay within the bound of a show.
bool take(const ZLJournalRecord& record, std::vector<ZLListeningSpan>& spans, std::size_t& formerFrames)
{
    QDataStream stream(record.payload);
    stream.setVersion(recordVersion);
    quint32 number = 0;
    quint32 firstFrame = 0;
    ZLListeningSpan place;
    stream >> number >> place.start >> place.interval >> firstFrame;
    const bool fits = number == spans.size() || (!spans.empty() && number == spans.size() - 1);
    if (record.kind != ZLJournalRecord::Kind::Heard || stream.status() != QDataStream::Ok || !fits || number > mostSpans
        || formerFrames + firstFrame > mostFrames)
        return false;
    if (number == spans.size() && !spans.empty())
        formerFrames += spans.back().frames.size();
    spans.resize(number + 1);
    ZLListeningSpan& span = spans.back();
    span.start = place.start;
    span.interval = place.interval;
    // Frames that a disk did not take leave a hole.
    span.frames.resize(firstFrame, ZLSoundFingerprint::Nothing);
    for (quint32 frame = 0; !stream.atEnd();) {
        stream >> frame;
        if (stream.status() == QDataStream::Ok)
            span.frames.push_back(frame);
    }
    return true;
}

}

ZLListeningJournal::ZLListeningJournal(ZLJournalDisk disk)
    : m_disk(std::move(disk))
{
}

ZLListeningJournal::~ZLListeningJournal()
{
    closeFile();
}

void ZLListeningJournal::note(const QString& path, const std::vector<ZLListeningSpan>& spans)
{
    if (path.isEmpty() || spans.empty())
        return;
    if (!m_file || path != m_path)
        openFile(path);
    const bool isThere = QFile::exists(path);
    const bool isGone = m_wasThere && !isThere;
    m_wasThere = isThere;
    if (m_isNew || isGone || m_file->isBroken()) {
        beginFile(spans);
        return;
    }
    const auto sync = ++m_notes % NotesPerSync == 0 ? ZLJournalFile::Sync::AtOnce : ZLJournalFile::Sync::WithTheNext;
    // The last one that was written may have grown since.
    for (std::size_t number = std::max<std::size_t>(m_spanCount, 1) - 1; number < spans.size(); ++number) {
        m_file->append(recordOf(m_formerSpans + number, spans[number], m_frameCount), sync);
        m_frameCount = 0;
    }
    m_spanCount = spans.size();
    m_frameCount = spans.back().frames.size();
}

void ZLListeningJournal::endRun()
{
    m_formerSpans += std::exchange(m_spanCount, 0);
    m_frameCount = 0;
}

void ZLListeningJournal::remove(const QString& path)
{
    closeFile();
    QFile::remove(path);
}

void ZLListeningJournal::openFile(const QString& path)
{
    closeFile();
    m_path = path;
    m_file = std::make_shared<ZLJournalFile>(path, m_disk);
    m_isNew = true;
    m_wasThere = false;
}

void ZLListeningJournal::beginFile(const std::vector<ZLListeningSpan>& spans)
{
    QList<ZLJournalRecord> records;
    for (std::size_t number = 0; number < spans.size(); ++number)
        records.append(recordOf(number, spans[number], 0));
    m_file->begin([records] { return records; });
    m_isNew = false;
    m_formerSpans = 0;
    m_spanCount = spans.size();
    m_frameCount = spans.back().frames.size();
}

void ZLListeningJournal::closeFile()
{
    if (m_file)
        ZLJournalFile::leave(std::exchange(m_file, nullptr), QDeadlineTimer(ZLSilentDisk::CommandPatience));
}

void ZLListeningJournal::addTo(ZLListeningData& data, const QString& path)
{
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document, ZLFileLinks::Refuse);
    if (!bytes)
        return;
    std::vector<ZLListeningSpan> spans;
    std::size_t formerFrames = 0;
    for (const ZLJournalRecord& record : ZLJournalRecords::decoded(bytes.value()).records) {
        if (!take(record, spans, formerFrames))
            break;
    }
    ZLListeningData heard;
    for (ZLListeningSpan& span : spans)
        heard.add(std::move(span));
    // A disk that was behind left less here than the document has.
    for (const ZLListeningSpan& span : heard.spans()) {
        if (!data.has(span))
            data.add(span);
    }
}

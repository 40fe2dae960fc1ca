#include "document/listening/ZLDocumentListening.h"

#include <cmath>
#include <ranges>
#include <utility>

namespace {

/// Seconds. What a clock that is set moves by is more.
constexpr double largestRounding = 0.001;
const QString removeListeningDataActionName =
    QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Remove Listening Data"));

double secondsOf(const QList<ZLSleepWhileRecording>& sleeps)
{
    double seconds = 0.0;
    for (const ZLSleepWhileRecording& sleep : sleeps)
        seconds += sleep.seconds;
    return seconds;
}

bool isSame(double left, double right)
{
    return std::abs(left - right) <= 0.001;
}

}

ZLDocumentListening::ZLDocumentListening(
    ZLListening& listening, ZLChapterDocument& document, const ZLDocumentSaver& saver)
    : m_listening(listening)
    , m_document(document)
    , m_saver(saver)
    , m_sleeps(document.undecidedSleeps())
    , m_duration(document.duration())
{
    connect(&document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        using Change = ZLDocumentChange;
        if (change.concerns(Change::Recording | Change::Reading | Change::Sleeps | Change::Times))
            followClock();
    });
    connect(&listening, &ZLListening::stateDidChange, this, &ZLDocumentListening::followClock);
    connect(&listening, &ZLListening::didHear, this, &ZLDocumentListening::hear);
    followClock();
}

ZLDocumentListening::~ZLDocumentListening()
{
    noteInJournal();
}

void ZLDocumentListening::followClock()
{
    const bool isWanted = m_document.isRecording() && m_listening.isOn();
    if (m_listener.isListening() && (!isWanted || wasClockSet()))
        finishRun();
    followSleeps();
    if (!isWanted || m_listener.isListening())
        return;
    m_clockSetting = m_document.recording().clock().setting();
    m_listener.begin(m_document.startTime());
}

bool ZLDocumentListening::wasClockSet() const
{
    return std::abs(m_document.recording().clock().setting() - m_clockSetting) > largestRounding;
}

void ZLDocumentListening::hear(const ZLHeardBlock& block)
{
    m_listener.hear(block, m_document.recording().clock().readingAt(block.hostTime));
    m_samplesSinceNote += block.samples.size();
    if (m_samplesSinceNote >= SamplesPerNote)
        noteInJournal();
}

void ZLDocumentListening::noteInJournal()
{
    m_samplesSinceNote = 0;
    if (!m_listener.isListening() || m_listener.spans().empty())
        return;
    m_journal.note(m_saver.listeningPath(), m_listener.spans());
    // That there is something is to be known before the clock stops: from here on moves of chapters are remembered.
    if (!m_document.extras().value(ZLListeningData::Key).isValid())
        m_document.extras().keep(ZLListeningData::Key, ZLListeningData::begun());
}

void ZLDocumentListening::finishRun()
{
    noteInJournal();
    m_journal.endRun();
    m_listener.end();
    ZLListeningData data = storedData();
    for (const ZLListeningSpan& span : m_listener.spans())
        data.add(span);
    // The journal stays: what stands in both counts once.
    if (!m_listener.spans().empty())
        m_document.extras().keep(ZLListeningData::Key, data.stored());
}

void ZLDocumentListening::followSleeps()
{
    const QList<ZLSleepWhileRecording> sleeps = std::exchange(m_sleeps, m_document.undecidedSleeps());
    const double added = m_document.duration() - std::exchange(m_duration, m_document.duration());
    const bool areAdded = m_sleeps.isEmpty() && isSame(added, secondsOf(sleeps));
    const bool areTakenBack = sleeps.isEmpty() && isSame(added, -secondsOf(m_sleeps));
    if (areAdded == areTakenBack)
        return;
    ZLListeningData data = storedData();
    // The last one first, so that those before it keep their readings; back in the other order.
    for (const ZLSleepWhileRecording& sleep : sleeps | std::views::reverse)
        data.insertTime(sleep.reading, sleep.seconds);
    for (const ZLSleepWhileRecording& sleep : std::as_const(m_sleeps))
        data.removeTime(sleep.reading, sleep.seconds);
    m_document.extras().keep(ZLListeningData::Key, data.stored());
}

ZLListeningData ZLDocumentListening::storedData() const
{
    return ZLListeningData::fromStored(m_document.extras().value(ZLListeningData::Key));
}

bool ZLDocumentListening::hasData() const
{
    return m_document.extras().value(ZLListeningData::Key).isValid()
        || (m_listener.isListening() && !m_listener.spans().empty());
}

void ZLDocumentListening::removeData()
{
    m_journal.remove(m_saver.listeningPath());
    if (m_listener.isListening())
        m_listener.begin(m_document.recording().clock().hostTime());
    const ZLUndoGroup group(m_document.undoManager());
    m_document.extras().change(ZLListeningData::Key, {});
    m_document.undoManager().setActionName(removeListeningDataActionName);
}

void ZLDocumentListening::recover(QVariantMap& extras, const QString& path)
{
    ZLListeningData data = ZLListeningData::fromStored(extras.value(ZLListeningData::Key));
    const ZLListeningData former = data;
    ZLListeningJournal::addTo(data, path);
    if (data != former)
        extras.insert(ZLListeningData::Key, data.stored());
}

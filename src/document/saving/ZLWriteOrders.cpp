#include "document/saving/ZLWriteOrders.h"

#include "document/saving/ZLKeepableContent.h"

ZLWriteOrders::ZLWriteOrders(ZLChapterDocument& document, const ZLDocumentPlace& place, ZLKnownFile& knownFile,
    ZLStateRhythm& states, ZLJournaling& journaling, const ZLWriteSchedule& schedule)
    : m_document(document)
    , m_place(place)
    , m_knownFile(knownFile)
    , m_states(states)
    , m_journaling(journaling)
    , m_schedule(schedule)
{
}

ZLResult<ZLWriteOrder> ZLWriteOrders::next(Reason reason)
{
    m_journaling.retry();
    // Else the journal, which is believed more, would lag behind the file.
    m_journaling.noteReading();
    ZLWriteOrder order { .path = m_place.path(),
        .snapshot = m_document.snapshot(),
        .present = m_knownFile.bytes(),
        .replaceable = m_knownFile.versions(),
        .journal = m_journaling.file(),
        .isAskedFor = reason == Reason::Asked,
        .asRead = m_knownFile.readBytes(),
        .replacesAnything = m_replacesAnything,
        .stateKeeper = m_stateKeeper,
        .revision = m_schedule.revision() };
    if (m_place.isUntitled()) {
        if (const ZLStatus directed = directToRecoveryFile(order); !directed)
            return directed.error();
    }
    if (order.replacesAnything)
        order.formerState = stateOfOthers();
    // The reading of a clock that runs on is no change worth going back before.
    else if (!m_schedule.isEverythingWritten())
        order.formerState = m_states.stateToKeep(m_place.history(), m_knownFile);
    return order;
}

std::optional<ZLFormerState> ZLWriteOrders::stateOfOthers() const
{
    if (!m_place.history())
        return std::nullopt;
    return ZLFormerState {
        .history = *m_place.history(), .bytes = {}, .time = m_place.timeOfFile(m_document.wallClockTime())
    };
}

ZLStatus ZLWriteOrders::directToRecoveryFile(ZLWriteOrder& order)
{
    if (const ZLStatus ensured = m_journaling.ensureRecoveryFile(); !ensured)
        return ensured;
    order.path = m_place.recoveryPath();
    order.isForOwnerOnly = true;
    // Another program has no business there.
    order.replaceable.reset();
    return ZLDone {};
}

bool ZLWriteOrders::isNothingNew() const
{
    return !m_place.isUntitled() && !m_document.isRecording() && m_schedule.isEverythingWritten()
        && !m_knownFile.bytes().isEmpty();
}

bool ZLWriteOrders::keepNothingOfEmptyDocument()
{
    if (!m_place.isUntitled() || ZLKeepableContent::isIn(m_document))
        return false;
    m_journaling.removeRecoveryFile();
    m_knownFile = {};
    return true;
}

void ZLWriteOrders::noteOutcome(const ZLWriteOutcome& outcome)
{
    m_states.noteOutcome(outcome.keeping);
    if (outcome.replaced) {
        m_replacesAnything = false;
        m_knownFile = *outcome.replaced;
    }
    if (outcome && !outcome.isUnchanged)
        m_knownFile.noteWritten(outcome.bytes, outcome.digest, m_document.wallClockTime());
}

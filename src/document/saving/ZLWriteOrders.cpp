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

ZLResult<ZLWriteOrder> ZLWriteOrders::next()
{
    m_journaling.retry();
    // Else the journal, which is believed more, would lag behind the file.
    m_journaling.noteReading();
    ZLWriteOrder order { .path = m_place.path(),
        .snapshot = m_document.snapshot(),
        .present = m_knownFile.bytes(),
        .replaceable = m_knownFile.versions(),
        .journal = m_journaling.file(),
        .stateKeeper = m_stateKeeper,
        .revision = m_schedule.revision() };
    if (m_place.isUntitled()) {
        if (const ZLStatus directed = directToRecoveryFile(order); !directed)
            return directed.error();
    }
    // The reading of a clock that runs on is no change worth going back before.
    if (!m_schedule.isEverythingWritten())
        order.formerState = m_states.stateToKeep(m_place.history(), m_knownFile);
    return order;
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
    if (outcome && !outcome.isUnchanged)
        m_knownFile.noteWritten(outcome.bytes, outcome.digest, m_document.wallClockTime());
}

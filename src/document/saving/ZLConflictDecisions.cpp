#include "document/saving/ZLConflictDecisions.h"

#include "document/saving/ZLTheirVersion.h"

ZLConflictDecisions::ZLConflictDecisions(ZLChapterDocument& document, const ZLDocumentPlace& place,
    ZLKnownFile& knownFile, ZLStateRhythm& states, ZLReverting& reverting, ZLSavingReport& report)
    : m_document(document)
    , m_place(place)
    , m_knownFile(knownFile)
    , m_states(states)
    , m_reverting(reverting)
    , m_report(report)
{
}

void ZLConflictDecisions::allowMine()
{
    if (!m_report.isConflict())
        return;
    m_knownFile = ZLTheirVersion::toBeReplaced(m_place.path(), m_place.timeOfFile(m_document.wallClockTime()));
    // What is overwritten on purpose is a state to go back to all the same.
    m_states.makeDue();
    m_report.noteDecision();
}

ZLStatus ZLConflictDecisions::takeTheirs()
{
    if (!m_report.isConflict())
        return ZLDone {};
    const auto theirs = ZLTheirVersion::read(m_place.path());
    if (!theirs)
        return theirs.error();
    (void)m_place.history()->keep(m_document.dataOfType(), m_document.wallClockTime(), theirs.value().bytes());
    m_knownFile = theirs.value().asKnownFile();
    m_report.noteDecision();
    m_document.adoptContents(theirs.value().contents());
    // Theirs as this program writes it, so that it is seen whether there is anything to go back to. The time of a clock
    // that runs is none of theirs.
    m_reverting.setPoint(m_document.isRecording() ? theirs.value().bytes() : m_document.dataOfType());
    return ZLDone {};
}

QString ZLConflictDecisions::pathForBoth() const
{
    return ZLTheirVersion::freePathBeside(m_place.path());
}

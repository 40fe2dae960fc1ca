#include "document/saving/ZLConflictDecisions.h"

#include "document/saving/ZLTheirVersion.h"

ZLConflictDecisions::ZLConflictDecisions(ZLChapterDocument& document, const ZLDocumentPlace& place,
    ZLKnownFile& knownFile, ZLWriteOrders& orders, ZLReverting& reverting, ZLSavingReport& report)
    : m_document(document)
    , m_place(place)
    , m_knownFile(knownFile)
    , m_orders(orders)
    , m_reverting(reverting)
    , m_report(report)
{
}

void ZLConflictDecisions::allowMine()
{
    if (!m_report.isConflict())
        return;
    m_orders.replaceAnything();
    m_report.noteDecision();
}

void ZLConflictDecisions::takeTheirs(ZLWhenDone whenDone)
{
    if (!m_report.isConflict() || m_reading.isUnderWay()) {
        whenDone(ZLDone {});
        return;
    }
    m_reading.start([this, whenDone, path = m_place.path(), history = m_place.history(), mine = m_document.snapshot(),
                        now = m_document.wallClockTime()](const ZLDiskWork::Teller& tell) {
        const auto theirs = ZLTheirVersion::read(path);
        if (theirs)
            (void)history->keep(mine.encoded(), now, theirs.value().bytes());
        tell([this, whenDone, theirs] {
            // Another decision may have been made meanwhile.
            if (theirs && m_report.isConflict())
                adopt(theirs.value());
            whenDone(theirs ? ZLStatus(ZLDone {}) : ZLStatus(theirs.error()));
        });
    });
}

void ZLConflictDecisions::adopt(const ZLTheirVersion& theirs)
{
    m_knownFile = theirs.asKnownFile();
    m_report.noteDecision();
    m_document.adopt(theirs.parts());
    ZLDocumentSnapshot point = m_document.snapshot();
    // The time of a clock that runs is none of theirs.
    if (m_document.isRecording())
        point.duration = theirs.parts().duration;
    m_reverting.setPoint(point);
}

QString ZLConflictDecisions::pathForBoth() const
{
    return ZLTheirVersion::freePathBeside(m_place.path());
}

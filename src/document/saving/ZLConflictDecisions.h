#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLDocumentPlace.h"
#include "document/saving/ZLKnownFile.h"
#include "document/saving/ZLReverting.h"
#include "document/saving/ZLSavingReport.h"
#include "document/saving/ZLWhenDone.h"
#include "document/saving/ZLWriteOrders.h"
#include "platform/ZLDiskWork.h"

class ZLTheirVersion;

/// Carries out what the user decides about a file that another program changed. Without such a conflict nothing
/// happens.
class ZLConflictDecisions {
public:
    /// All of them have to outlive the object.
    ZLConflictDecisions(ZLChapterDocument& document, const ZLDocumentPlace& place, ZLKnownFile& knownFile,
        ZLWriteOrders& orders, ZLReverting& reverting, ZLSavingReport& report);

    /// Allows the next write to take the place of what the other program wrote, and keeps that as a former state.
    void allowMine();
    /// Takes over what the other program wrote, as an undoable step; a running clock goes on. The document as it was
    /// becomes a former state. Fails for a file that is no document, and the conflict stays. The file is read beside
    /// the event loop.
    void takeTheirs(ZLWhenDone whenDone);
    /// Waits for that.
    void settle(QDeadlineTimer deadline) { m_reading.settle(deadline); }
    /// Where the document may go on beside the file that it leaves to the other program.
    [[nodiscard]] QString pathForBoth() const;

private:
    void adopt(const ZLTheirVersion& theirs);

    ZLChapterDocument& m_document;
    const ZLDocumentPlace& m_place;
    ZLKnownFile& m_knownFile;
    ZLWriteOrders& m_orders;
    ZLReverting& m_reverting;
    ZLSavingReport& m_report;
    ZLDiskWork m_reading;
};

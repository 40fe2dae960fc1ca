#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLDocumentPlace.h"
#include "document/saving/ZLKnownFile.h"
#include "document/saving/ZLReverting.h"
#include "document/saving/ZLSavingReport.h"
#include "document/saving/ZLStateRhythm.h"

/// Carries out what the user decides about a file that another program changed. Without such a conflict nothing
/// happens.
class ZLConflictDecisions {
public:
    /// All of them have to outlive the object.
    ZLConflictDecisions(ZLChapterDocument& document, const ZLDocumentPlace& place, ZLKnownFile& knownFile,
        ZLStateRhythm& states, ZLReverting& reverting, ZLSavingReport& report);

    /// Allows the next write to take the place of what the other program wrote, and keeps that as a former state.
    void allowMine();
    /// Takes over what the other program wrote, as an undoable step; a running clock goes on. The document as it was
    /// becomes a former state. Fails for a file that is no document, and the conflict stays.
    ZLStatus takeTheirs();
    /// Where the document may go on beside the file that it leaves to the other program.
    [[nodiscard]] QString pathForBoth() const;

private:
    ZLChapterDocument& m_document;
    const ZLDocumentPlace& m_place;
    ZLKnownFile& m_knownFile;
    ZLStateRhythm& m_states;
    ZLReverting& m_reverting;
    ZLSavingReport& m_report;
};

#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLBackgroundWrite.h"
#include "document/saving/ZLDocumentPlace.h"
#include "document/saving/ZLJournaling.h"
#include "document/saving/ZLKnownFile.h"
#include "document/saving/ZLStateRhythm.h"
#include "document/saving/ZLWriteSchedule.h"

#include <memory>

/// Knows what the next write of a document is, and what its file holds after a write.
class ZLWriteOrders {
public:
    /// All of them have to outlive the object.
    ZLWriteOrders(ZLChapterDocument& document, const ZLDocumentPlace& place, ZLKnownFile& knownFile,
        ZLStateRhythm& states, ZLJournaling& journaling, const ZLWriteSchedule& schedule);

    enum class Reason {
        Changes,
        Asked, ///< See ZLWriteOrder::isAskedFor.
    };
    /// The document as it is now, to its own file. The journal holds it too, so that it never lags behind the file.
    [[nodiscard]] ZLResult<ZLWriteOrder> next(Reason reason = Reason::Changes);
    /// Makes the next write that is carried out take the place of whatever stands there.
    void replaceAnything() { m_replacesAnything = true; }
    /// Whether the user's file holds the document as it is, as far as is known, so that a write would change nothing.
    [[nodiscard]] bool isNothingNew() const;
    /// Takes away what the recovery folder holds of an untitled document that is empty; returns whether it is one.
    bool keepNothingOfEmptyDocument();
    /// A write to the document's file has ended.
    void noteOutcome(const ZLWriteOutcome& outcome);

private:
    [[nodiscard]] ZLStatus directToRecoveryFile(ZLWriteOrder& order);
    /// What another program made of the file is known when it is replaced.
    [[nodiscard]] std::optional<ZLFormerState> stateOfOthers() const;

    ZLChapterDocument& m_document;
    const ZLDocumentPlace& m_place;
    ZLKnownFile& m_knownFile;
    ZLStateRhythm& m_states;
    ZLJournaling& m_journaling;
    const ZLWriteSchedule& m_schedule;
    bool m_replacesAnything = false;
    const std::shared_ptr<ZLStateKeeper> m_stateKeeper = std::make_shared<ZLStateKeeper>();
};

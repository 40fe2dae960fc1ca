#pragma once

#include "app/session/ZLDocumentFinding.h"
#include "app/session/ZLDocumentMaker.h"

#include <functional>
#include <optional>

/// What the recovery folder gave back.
struct ZLRevivedDocument {
    /// Its `document` is null when there is nothing to bring back, or nothing that is free.
    ZLResult<ZLSavedDocument> document = ZLSavedDocument {};
    /// What a journal holds beyond its file, when another program changed that meanwhile.
    std::optional<ZLSavedDocument> aside {};
};

/// Brings documents back from the recovery folder: from the journal of a program that ended without tidying up, and
/// from the files of untitled documents.
class ZLDocumentRevival {
public:
    using IsFileOpen = std::function<bool(const QString& path)>;

    /// `maker` has to outlive the object.
    explicit ZLDocumentRevival(const ZLDocumentMaker& maker)
        : m_maker(maker)
    {
    }

    /// The document whose journal was found.
    [[nodiscard]] ZLRevivedDocument revive(ZLFoundJournal found) const;
    /// What lies in the recovery folder at `path`. A document whose file is open here already is left alone.
    [[nodiscard]] ZLRevivedDocument reviveRecoveryFile(const QString& path, const IsFileOpen& isFileOpen) const;

private:
    [[nodiscard]] ZLRevivedDocument reviveBesideFile(ZLFoundJournal found) const;
    [[nodiscard]] ZLResult<ZLSavedDocument> readRecoveryFile(std::unique_ptr<ZLRecoveryFile> file) const;

    const ZLDocumentMaker& m_maker;
};

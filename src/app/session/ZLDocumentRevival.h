#pragma once

#include "app/session/ZLDocumentMaker.h"
#include "document/saving/ZLDocumentRecovery.h"

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

    /// The document in the user's file at `path`, if there is a journal of it; absent otherwise.
    [[nodiscard]] std::optional<ZLRevivedDocument> reviveFile(const QString& path) const;
    /// What lies in the recovery folder at `path`. A document whose file is open here already is left alone.
    [[nodiscard]] ZLRevivedDocument reviveRecoveryFile(const QString& path, const IsFileOpen& isFileOpen) const;

private:
    [[nodiscard]] ZLRevivedDocument revive(ZLRecoveredDocument recovered) const;
    [[nodiscard]] ZLRevivedDocument reviveBesideFile(ZLRecoveredDocument recovered, const QString& path) const;
    [[nodiscard]] ZLResult<ZLSavedDocument> readRecoveryFile(std::unique_ptr<ZLRecoveryFile> file) const;

    const ZLDocumentMaker& m_maker;
};

#pragma once

#include "app/session/ZLDocumentFinding.h"
#include "document/ZLChapterDocument.h"
#include "document/saving/ZLDocumentSaver.h"
#include "document/saving/ZLRecoveryFolder.h"
#include "platform/ZLResult.h"

#include <functional>
#include <memory>

/// A document with what keeps it on the disk.
struct ZLSavedDocument {
    std::unique_ptr<ZLChapterDocument> document;
    std::unique_ptr<ZLDocumentSaver> saver;
};

/// Makes documents, each with its saver, and belongs to no list of them.
class ZLDocumentMaker {
public:
    using NewName = std::function<QString()>;

    /// `newName` gives an untitled document its name. `recoveryFolder` has to outlive the maker and what it makes.
    ZLDocumentMaker(ZLDocumentEnvironment environment, ZLSavingMachinery machinery,
        const ZLRecoveryFolder& recoveryFolder, NewName newName);

    [[nodiscard]] const ZLDocumentEnvironment& environment() const { return m_environment; }
    [[nodiscard]] const ZLSavingMachinery& machinery() const { return m_machinery; }
    [[nodiscard]] const ZLRecoveryFolder& recoveryFolder() const { return m_recoveryFolder; }

    [[nodiscard]] ZLSavedDocument makeUntitled() const;
    /// An untitled document of what was read elsewhere. It is written to the recovery folder at once, if that can be
    /// done.
    [[nodiscard]] ZLSavedDocument makeUntitledFrom(const ZLDocumentContents& contents) const;
    /// Writes a new, empty file at `path`.
    [[nodiscard]] ZLResult<ZLSavedDocument> createFile(const QString& path) const;
    [[nodiscard]] ZLResult<ZLSavedDocument> readFile(const QString& path) const;
    /// The document in the file at `path`, which was read already.
    [[nodiscard]] ZLSavedDocument make(const QString& path, const ZLReadDocument& read) const;
    /// An untitled document that lies in `file`.
    [[nodiscard]] ZLResult<ZLSavedDocument> readRecoveryFile(std::unique_ptr<ZLRecoveryFile> file) const;
    /// The document whose journal was found, for its file.
    [[nodiscard]] ZLSavedDocument rebuild(ZLFoundJournal found) const;
    /// The document in a journal as an untitled one. It is written to the recovery folder at once, if that can be done.
    [[nodiscard]] ZLSavedDocument rebuildAside(const ZLReadJournal& read) const;

private:
    [[nodiscard]] std::unique_ptr<ZLChapterDocument> makeDocument() const;
    [[nodiscard]] ZLSavedDocument keepAtOnce(std::unique_ptr<ZLChapterDocument> document) const;
    [[nodiscard]] std::unique_ptr<ZLChapterDocument> makeDocumentOf(const ZLDocumentParts& parts) const;
    [[nodiscard]] std::unique_ptr<ZLChapterDocument> makeDocumentFrom(const ZLReadJournal& read) const;

    const ZLDocumentEnvironment m_environment;
    const ZLSavingMachinery m_machinery;
    const ZLRecoveryFolder& m_recoveryFolder;
    const NewName m_newName;
};

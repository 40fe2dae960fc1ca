#pragma once

#include "app/session/ZLDocumentMaker.h"
#include "app/session/ZLDocumentRevival.h"
#include "app/session/ZLRecentDocuments.h"
#include "app/session/ZLSession.h"
#include "document/saving/ZLDocumentSaver.h"
#include "platform/ZLStateFolder.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

/// What happens to what a closed document leaves.
enum class ZLClosing {
    Keep, ///< It must be on the disk: in the user's file, or for an untitled document in the recovery folder.
    Discard, ///< An untitled document is forgotten; of a titled one goes what could not be written.
};

enum class ZLMissingFile {
    Fail,
    Create, ///< A new document at this path, written at once.
};

struct ZLDocumentControllerSetup {
    ZLDocumentEnvironment environment = {};
    ZLSavingMachinery machinery = {};
    /// Where recovery files, the open documents and the recent ones are remembered.
    QString stateFolder = ZLStateFolder::path();
    /// Carries out the writes of the list of open documents; when empty, a thread of its own.
    ZLOpenDocuments::Executor sessionExecutor = {};
};

/// Owns the open documents, each with its saver, in the order in which they were opened. Windows show what it opens and
/// tell it which document has the user's attention.
class ZLDocumentController : public QObject {
    Q_OBJECT

public:
    explicit ZLDocumentController(ZLDocumentControllerSetup setup, QObject* parent = nullptr);
    /// Writes nothing any more: saveAllNow() comes before. Both together wait no longer than
    /// ZLSilentDisk::EndPatience for disks that do not answer.
    ~ZLDocumentController() override;

    [[nodiscard]] QList<ZLChapterDocument*> documents() const;
    /// Null for a document that is not open.
    [[nodiscard]] ZLDocumentSaver* saverOf(const ZLChapterDocument* document) const;
    /// The open document whose file stands at `path`, by whatever name; null when there is none.
    [[nodiscard]] ZLChapterDocument* documentAtPath(const QString& path) const;
    /// The document whose window is the main one; null when there is none.
    [[nodiscard]] ZLChapterDocument* currentDocument() const { return m_currentDocument; }
    void setCurrentDocument(ZLChapterDocument* document);
    /// The current document, else the one that was opened first among those still open, else null. What the program
    /// itself brought back comes after all that was opened or made since.
    [[nodiscard]] ZLChapterDocument* currentOrLastDocument() const;
    /// The same while there is no current document.
    [[nodiscard]] ZLChapterDocument* firstDocument() const;

    ZLChapterDocument* newDocument();
    /// The document in the file at `path`, which may be open already. It takes the place of currentOrLastDocument() if
    /// that is transient. The error says which file and why.
    ZLResult<ZLChapterDocument*> openDocument(const QString& path, ZLMissingFile missingFile = ZLMissingFile::Fail);
    /// @name The same in two steps, for what was found on the disk already
    /// Each of them takes its time for a long document.
    /// @{
    [[nodiscard]] ZLRevivedDocument make(ZLFoundDocument found) const;
    /// The document may have been opened meanwhile.
    ZLResult<ZLChapterDocument*> openMade(const QString& path, ZLRevivedDocument made);
    /// @}
    /// A new untitled document of `contents`, which are in no file yet.
    ZLChapterDocument* openContents(const ZLDocumentContents& contents);
    /// Opens what was open when the program ended, whatever ended it, and every untitled document that was kept; a new
    /// document when there is none of both. Returns what could not be opened, a sentence each.
    QStringList restoreSession();
    /// Opens every document that was kept aside, untitled or newer than its file, unless it is open already, here or
    /// elsewhere. Returns what could not be opened, a sentence each.
    QStringList restoreKeptDocuments();

    /// ZLDocumentSaver::saveAs(), remembered among the recent documents.
    void saveDocumentAs(ZLChapterDocument* document, const QString& path, const ZLWhenDone& whenDone);
    /// Refused while the document's clock runs, and with ZLClosing::Keep when it cannot be written. The last document
    /// stays in the memory of what was open, since closing it ends the program.
    ZLStatus closeDocument(ZLChapterDocument* document, ZLClosing closing);

    /// Writes all documents, side by side; returns what failed, a sentence each.
    QStringList saveAllNow();
    [[nodiscard]] bool canTerminate() const;
    /// To be called before the windows are closed one after the other because the program ends: what is open now will
    /// be open at the next start.
    void keepSessionAsItIs() { m_session.keepAsItIs(); }

    [[nodiscard]] const ZLRecoveryFolder& recoveryFolder() const { return m_recoveryFolder; }
    [[nodiscard]] ZLRecentDocuments& recentDocuments() { return m_recentDocuments; }

Q_SIGNALS:
    void didOpenDocument(ZLChapterDocument* document);
    void willCloseDocument(ZLChapterDocument* document);
    /// The document is no longer in the list; it lives until control returns to the event loop.
    void didCloseDocument(ZLChapterDocument* document);
    void currentDocumentDidChange();

private:
    void tidyHistories() const;
    /// A person has opened or made the document in this run.
    void noteAskedFor(ZLChapterDocument* document);
    [[nodiscard]] ZLSession::Openers openers();
    ZLStatus openRecoveryFile(const QString& path);
    /// Another document needs files and threads of its own, which the system bounds.
    [[nodiscard]] static ZLStatus roomForOneMore();
    ZLResult<ZLChapterDocument*> adoptRevived(ZLRevivedDocument revived);
    ZLResult<ZLChapterDocument*> adoptOpened(ZLResult<ZLSavedDocument> opened);
    ZLChapterDocument* adopt(ZLSavedDocument made);
    /// In place of the current document, if that is transient.
    ZLChapterDocument* adoptInPlaceOfTransient(ZLSavedDocument made);
    [[nodiscard]] ZLChapterDocument* transientDocument() const;
    [[nodiscard]] QString unusedUntitledName() const;
    void release(ZLChapterDocument* document);
    void rememberSession();

    const ZLRecoveryFolder m_recoveryFolder;
    const ZLDocumentMaker m_maker;
    const ZLDocumentRevival m_revival { m_maker };
    ZLSession m_session;
    ZLRecentDocuments m_recentDocuments;
    std::vector<ZLSavedDocument> m_entries;
    /// Those of the open documents that were not brought back, in the order in which they were asked for.
    QList<ZLChapterDocument*> m_askedFor;
    bool m_isBringingBack = false;
    ZLChapterDocument* m_currentDocument = nullptr;
    /// Of the last saveAllNow().
    QDeadlineTimer m_endDeadline { QDeadlineTimer::Forever };
};

#include "app/ZLDocumentController.h"

#include "platform/ZLDescriptors.h"
#include "platform/ZLFileIdentity.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QScopedValueRollback>
#include <QSet>
#include <QThreadPool>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(documentControllerLog, "zelta.app.documents", QtInfoMsg)

QString absoluteDocumentPath(const QString& path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

}

ZLDocumentController::ZLDocumentController(ZLDocumentControllerSetup setup, QObject* parent)
    : QObject(parent)
    , m_recoveryFolder(setup.stateFolder + u"/recovery"_s)
    , m_maker(std::move(setup.environment), std::move(setup.machinery), m_recoveryFolder,
          [this] { return unusedUntitledName(); })
    , m_session(setup.stateFolder, m_recoveryFolder, std::move(setup.sessionExecutor))
    , m_recentDocuments(setup.stateFolder)
{
    tidyHistories();
}

ZLDocumentController::~ZLDocumentController()
{
    // All of them out of one account, however many documents there are.
    const QDeadlineTimer deadline =
        m_endDeadline.isForever() ? QDeadlineTimer(ZLSilentDisk::EndPatience) : m_endDeadline;
    for (const ZLSavedDocument& entry : m_entries)
        entry.saver->end(deadline);
    m_session.end(deadline);
}

void ZLDocumentController::tidyHistories() const
{
    const auto tidy = [folder = m_recoveryFolder, now = m_maker.environment().wallClock()] {
        ZLDocumentHistory::removeForgotten(folder, now);
    };
    // It looks for documents wherever they lie, and a share that does not answer must not keep the program waiting.
    if (m_maker.machinery().executor)
        m_maker.machinery().executor(tidy);
    else
        QThreadPool::globalInstance()->start(tidy);
}

QList<ZLChapterDocument*> ZLDocumentController::documents() const
{
    QList<ZLChapterDocument*> documents;
    for (const ZLSavedDocument& entry : m_entries)
        documents.append(entry.document.get());
    return documents;
}

ZLDocumentSaver* ZLDocumentController::saverOf(const ZLChapterDocument* document) const
{
    for (const ZLSavedDocument& entry : m_entries) {
        if (entry.document.get() == document)
            return entry.saver.get();
    }
    return nullptr;
}

void ZLDocumentController::setCurrentDocument(ZLChapterDocument* document)
{
    if (std::exchange(m_currentDocument, document) != document)
        Q_EMIT currentDocumentDidChange();
}

ZLChapterDocument* ZLDocumentController::currentOrLastDocument() const
{
    return m_currentDocument ? m_currentDocument : firstDocument();
}

ZLChapterDocument* ZLDocumentController::firstDocument() const
{
    if (!m_askedFor.isEmpty())
        return m_askedFor.constFirst();
    return m_entries.empty() ? nullptr : m_entries.front().document.get();
}

ZLChapterDocument* ZLDocumentController::newDocument()
{
    return adopt(m_maker.makeUntitled());
}

ZLResult<ZLChapterDocument*> ZLDocumentController::openDocument(const QString& path, ZLMissingFile missingFile)
{
    const QString absolutePath = absoluteDocumentPath(path);
    if (ZLChapterDocument* open = documentAtPath(absolutePath)) {
        noteAskedFor(open);
        return open;
    }
    qCDebug(documentControllerLog) << "opening" << absolutePath;
    ZLFoundDocument found = ZLDocumentFinding::find(m_recoveryFolder, absolutePath);
    if (missingFile == ZLMissingFile::Create && !found.journal && !QFileInfo::exists(absolutePath))
        return adoptOpened(m_maker.createFile(absolutePath));
    return openMade(absolutePath, make(std::move(found)));
}

ZLStatus ZLDocumentController::roomForOneMore()
{
    if (ZLDescriptors::areScarce())
        return ZLError { tr(
            "Too many documents are open at once, so not every one was opened. Close some, then try again.") };
    return ZLDone {};
}

ZLRevivedDocument ZLDocumentController::make(ZLFoundDocument found) const
{
    if (const ZLStatus room = roomForOneMore(); !room)
        return { .document = room.error() };
    if (found.journal)
        return m_revival.revive(std::move(*found.journal));
    if (!found.file)
        return { .document = found.file.error() };
    return { .document = m_maker.make(found.path, found.file.value()) };
}

ZLResult<ZLChapterDocument*> ZLDocumentController::openMade(const QString& path, ZLRevivedDocument made)
{
    if (ZLChapterDocument* open = documentAtPath(path)) {
        noteAskedFor(open);
        return open;
    }
    return adoptRevived(std::move(made));
}

QStringList ZLDocumentController::restoreSession()
{
    QStringList failures;
    {
        const QScopedValueRollback bringingBack(m_isBringingBack, true);
        failures = m_session.restore(openers());
    }
    if (m_entries.empty())
        newDocument();
    else
        rememberSession();
    return failures;
}

QStringList ZLDocumentController::restoreKeptDocuments()
{
    const QScopedValueRollback bringingBack(m_isBringingBack, true);
    return m_session.restoreKept(openers());
}

ZLSession::Openers ZLDocumentController::openers()
{
    return {
        .openFile =
            [this](const QString& path) {
                const auto opened = openDocument(path);
                return opened ? ZLStatus(ZLDone {}) : ZLStatus(opened.error());
            },
        .openRecoveryFile = [this](const QString& path) { return openRecoveryFile(path); },
    };
}

ZLChapterDocument* ZLDocumentController::openContents(const ZLDocumentContents& contents)
{
    ZLSavedDocument made = m_maker.makeUntitledFrom(contents);
    made.document->setDocumentEdited(true);
    return adoptInPlaceOfTransient(std::move(made));
}

void ZLDocumentController::saveDocumentAs(ZLChapterDocument* document, const QString& path, const ZLWhenDone& whenDone)
{
    const QString target = ZLDocumentPlace::pathWithExtension(path);
    saverOf(document)->saveAs(target, [this, target, whenDone](const ZLStatus& saved) {
        if (saved)
            m_recentDocuments.add(target);
        whenDone(saved);
    });
}

ZLStatus ZLDocumentController::closeDocument(ZLChapterDocument* document, ZLClosing closing)
{
    ZLDocumentSaver* saver = saverOf(document);
    if (document->isRecording())
        return ZLError {
            tr("“%1” is recording. Pause the recording before you close it.").arg(document->displayName())
        };
    const bool isForgotten = closing == ZLClosing::Discard && saver->isUntitled();
    if (isForgotten) {
        saver->discard();
    } else if (const ZLStatus saved = saver->saveNow(); !saved) {
        if (closing == ZLClosing::Keep)
            return saved;
        saver->discard();
    }
    const bool isLast = m_entries.size() == 1;
    if (isLast && !isForgotten)
        m_session.keepAsItIs();
    release(document);
    if (isLast)
        m_session.followAgain();
    return ZLDone {};
}

QStringList ZLDocumentController::saveAllNow()
{
    // Each on its own way at first, so that a disk that hangs takes no other document's time.
    for (const ZLSavedDocument& entry : m_entries)
        entry.saver->writeNewestState();
    m_endDeadline = QDeadlineTimer(ZLSilentDisk::EndPatience);
    QStringList failures;
    for (const ZLSavedDocument& entry : m_entries) {
        if (const ZLStatus saved = entry.saver->saveNow(m_endDeadline); !saved)
            failures.append(saved.error().message);
    }
    return failures;
}

bool ZLDocumentController::canTerminate() const
{
    return std::none_of(
        m_entries.begin(), m_entries.end(), [](const ZLSavedDocument& entry) { return entry.document->isRecording(); });
}

ZLStatus ZLDocumentController::openRecoveryFile(const QString& path)
{
    if (const ZLStatus room = roomForOneMore(); !room)
        return room;
    const auto isFileOpen = [this](const QString& file) { return documentAtPath(file) != nullptr; };
    const auto opened = adoptRevived(m_revival.reviveRecoveryFile(path, isFileOpen));
    return opened ? ZLStatus(ZLDone {}) : ZLStatus(opened.error());
}

ZLResult<ZLChapterDocument*> ZLDocumentController::adoptRevived(ZLRevivedDocument revived)
{
    const auto opened = adoptOpened(std::move(revived.document));
    // Behind the document that was asked for, which commands from outside are meant for.
    const QScopedValueRollback bringingBack(m_isBringingBack, true);
    if (revived.aside)
        adopt(std::move(*revived.aside));
    return opened;
}

ZLResult<ZLChapterDocument*> ZLDocumentController::adoptOpened(ZLResult<ZLSavedDocument> opened)
{
    if (!opened)
        return opened.error();
    ZLSavedDocument made = std::move(opened).value();
    if (!made.document || made.saver->isUntitled())
        return made.document ? adopt(std::move(made)) : nullptr;
    const QString path = made.saver->path();
    ZLChapterDocument* document = adoptInPlaceOfTransient(std::move(made));
    m_recentDocuments.add(path);
    return document;
}

ZLChapterDocument* ZLDocumentController::adoptInPlaceOfTransient(ZLSavedDocument made)
{
    ZLChapterDocument* unwanted = transientDocument();
    ZLChapterDocument* document = adopt(std::move(made));
    if (unwanted)
        release(unwanted);
    return document;
}

ZLChapterDocument* ZLDocumentController::documentAtPath(const QString& path) const
{
    const auto identity = ZLFileIdentity::of(path);
    for (const ZLSavedDocument& entry : m_entries) {
        if (!entry.saver->isUntitled() && ZLFileIdentity::of(entry.saver->path()) == identity)
            return entry.document.get();
    }
    return nullptr;
}

ZLChapterDocument* ZLDocumentController::transientDocument() const
{
    ZLChapterDocument* document = currentOrLastDocument();
    return document && saverOf(document)->isTransient() ? document : nullptr;
}

QString ZLDocumentController::unusedUntitledName() const
{
    QSet<QString> used;
    for (const ZLSavedDocument& entry : m_entries)
        used.insert(entry.document->displayName());
    QString name = tr("Untitled");
    for (int number = 2; used.contains(name); ++number)
        name = tr("Untitled %1").arg(number);
    return name;
}

ZLChapterDocument* ZLDocumentController::adopt(ZLSavedDocument made)
{
    ZLChapterDocument* document = made.document.get();
    connect(made.saver.get(), &ZLDocumentSaver::locationDidChange, this, &ZLDocumentController::rememberSession);
    m_entries.push_back(std::move(made));
    noteAskedFor(document);
    rememberSession();
    Q_EMIT didOpenDocument(document);
    document->informControllers();
    return document;
}

void ZLDocumentController::noteAskedFor(ZLChapterDocument* document)
{
    if (!m_isBringingBack && !m_askedFor.contains(document))
        m_askedFor.append(document);
}

void ZLDocumentController::release(ZLChapterDocument* document)
{
    Q_EMIT willCloseDocument(document);
    m_askedFor.removeOne(document);
    if (m_currentDocument == document)
        setCurrentDocument(nullptr);
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
        [document](const ZLSavedDocument& entry) { return entry.document.get() == document; });
    ZLSavedDocument entry = std::move(*found);
    m_entries.erase(found);
    rememberSession();
    Q_EMIT didCloseDocument(document);
    // The call may come out of one of the document's own signals.
    entry.saver.reset();
    document->setParent(this);
    entry.document.release()->deleteLater();
}

void ZLDocumentController::rememberSession()
{
    QList<const ZLDocumentSaver*> savers;
    for (const ZLSavedDocument& entry : m_entries)
        savers.append(entry.saver.get());
    m_session.remember(savers);
}

#include "app/ZLDocumentController.h"

#include "delivery/ZLMediaImport.h"
#include "document/ZLUnreadableDocument.h"
#include "platform/ZLBoundedFile.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
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

/// The same text for all paths that lead to one file, also while that is not there.
QString identityOfPath(const QString& path)
{
    const QFileInfo file(path);
    if (file.exists())
        return file.canonicalFilePath();
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? absoluteDocumentPath(path) : folder + u'/' + file.fileName();
}

bool isSameFile(const QString& left, const QString& right)
{
    return !left.isEmpty() && identityOfPath(left) == identityOfPath(right);
}

}

ZLDocumentController::ZLDocumentController(ZLDocumentControllerSetup setup, QObject* parent)
    : QObject(parent)
    , m_environment(std::move(setup.environment))
    , m_machinery(std::move(setup.machinery))
    , m_recoveryFolder(setup.stateFolder + u"/recovery"_s)
    , m_openDocuments(setup.stateFolder, std::move(setup.sessionExecutor))
    , m_recentDocuments(setup.stateFolder)
{
    tidyHistories();
}

ZLDocumentController::~ZLDocumentController()
{
    // All of them out of one account, however many documents there are.
    const QDeadlineTimer deadline =
        m_endDeadline.isForever() ? QDeadlineTimer(ZLSilentDisk::EndPatience) : m_endDeadline;
    for (const Entry& entry : m_entries)
        entry.saver->end(deadline);
    m_openDocuments.end(deadline);
}

void ZLDocumentController::tidyHistories() const
{
    const auto tidy = [folder = m_recoveryFolder, now = m_environment.wallClock()] {
        ZLDocumentHistory::removeForgotten(folder, now);
    };
    // It looks for documents wherever they lie, and a share that does not answer must not keep the program waiting.
    if (m_machinery.executor)
        m_machinery.executor(tidy);
    else
        QThreadPool::globalInstance()->start(tidy);
}

QList<ZLChapterDocument*> ZLDocumentController::documents() const
{
    QList<ZLChapterDocument*> documents;
    for (const Entry& entry : m_entries)
        documents.append(entry.document.get());
    return documents;
}

ZLDocumentSaver* ZLDocumentController::saverOf(const ZLChapterDocument* document) const
{
    for (const Entry& entry : m_entries) {
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
    auto document = makeDocument();
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery);
    return adopt({ std::move(document), std::move(saver) });
}

ZLResult<ZLChapterDocument*> ZLDocumentController::openDocument(const QString& path, ZLMissingFile missingFile)
{
    const QString absolutePath = absoluteDocumentPath(path);
    if (ZLChapterDocument* open = documentAtPath(absolutePath)) {
        noteAskedFor(open);
        return open;
    }
    qCDebug(documentControllerLog) << "opening" << absolutePath;
    auto recovered = ZLDocumentRecovery::claimJournal(
        m_recoveryFolder, [&](const QString& journaledPath) { return isSameFile(journaledPath, absolutePath); });
    if (recovered) {
        recovered->journal.filePath = absolutePath;
        return openRecovered(std::move(*recovered));
    }
    if (missingFile == ZLMissingFile::Create && !QFileInfo::exists(absolutePath))
        return createDocumentAt(absolutePath);
    return openFile(absolutePath);
}

ZLResult<ZLChapterDocument*> ZLDocumentController::openAudioFile(const QString& path)
{
    const auto contents = ZLMediaImport::read(absoluteDocumentPath(path));
    if (!contents)
        return contents.error();
    auto document = makeDocument();
    document->readFromData(ZLDocumentFile::encode(contents.value()));
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery);
    if (const ZLStatus kept = saver->saveNow(); !kept)
        qCWarning(documentControllerLog) << kept.error().message;
    document->setDocumentEdited(true);
    return adoptInPlaceOfTransient({ std::move(document), std::move(saver) });
}

ZLStatus ZLDocumentController::saveDocumentAs(ZLChapterDocument* document, const QString& path)
{
    const QString target = ZLDocumentPlace::pathWithExtension(path);
    const ZLStatus saved = saverOf(document)->saveAs(target);
    if (saved)
        m_recentDocuments.add(target);
    return saved;
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
        keepSessionAsItIs();
    release(document);
    if (isLast)
        m_isSessionKept = false;
    return ZLDone {};
}

QStringList ZLDocumentController::saveAllNow()
{
    // Each on its own way at first, so that a disk that hangs takes nobody else's time.
    for (const Entry& entry : m_entries)
        entry.saver->writeNewestState();
    m_endDeadline = QDeadlineTimer(ZLSilentDisk::EndPatience);
    QStringList failures;
    for (const Entry& entry : m_entries) {
        if (const ZLStatus saved = entry.saver->saveNow(m_endDeadline); !saved)
            failures.append(saved.error().message);
    }
    return failures;
}

bool ZLDocumentController::canTerminate() const
{
    return std::none_of(
        m_entries.begin(), m_entries.end(), [](const Entry& entry) { return entry.document->isRecording(); });
}

std::unique_ptr<ZLChapterDocument> ZLDocumentController::makeDocument() const
{
    auto document = std::make_unique<ZLChapterDocument>(m_environment);
    document->setDisplayName(unusedUntitledName());
    return document;
}

ZLResult<ZLChapterDocument*> ZLDocumentController::openFile(const QString& path)
{
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
    if (!bytes)
        return bytes.error();
    auto read = makeDocumentFrom(path, bytes.value());
    if (!read)
        return read.error();
    auto document = std::move(read).value();
    document->setDisplayName(QFileInfo(path).fileName());
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery, path, bytes.value());
    return adoptOpened({ std::move(document), std::move(saver) }, path);
}

ZLResult<std::unique_ptr<ZLChapterDocument>> ZLDocumentController::makeDocumentFrom(
    const QString& path, const QByteArray& bytes) const
{
    auto document = makeDocument();
    ZLFileOperationError error;
    if (!document->readFromData(bytes, {}, &error))
        return ZLUnreadableDocument::error(path, bytes, error.message);
    return document;
}

ZLResult<ZLChapterDocument*> ZLDocumentController::createDocumentAt(const QString& path)
{
    auto document = makeDocument();
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery);
    if (const ZLStatus saved = saver->saveAs(path); !saved)
        return saved.error();
    return adoptOpened({ std::move(document), std::move(saver) }, path);
}

ZLChapterDocument* ZLDocumentController::adoptOpened(Entry entry, const QString& path)
{
    ZLChapterDocument* opened = adoptInPlaceOfTransient(std::move(entry));
    m_recentDocuments.add(path);
    return opened;
}

ZLChapterDocument* ZLDocumentController::adoptInPlaceOfTransient(Entry entry)
{
    ZLChapterDocument* unwanted = transientDocument();
    ZLChapterDocument* opened = adopt(std::move(entry));
    if (unwanted)
        release(unwanted);
    return opened;
}

ZLChapterDocument* ZLDocumentController::documentAtPath(const QString& path) const
{
    const QString identity = identityOfPath(path);
    for (const Entry& entry : m_entries) {
        if (!entry.saver->isUntitled() && identityOfPath(entry.saver->path()) == identity)
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
    for (const Entry& entry : m_entries)
        used.insert(entry.document->displayName());
    QString name = tr("Untitled");
    for (int number = 2; used.contains(name); ++number)
        name = tr("Untitled %1").arg(number);
    return name;
}

ZLChapterDocument* ZLDocumentController::adopt(Entry entry)
{
    ZLChapterDocument* document = entry.document.get();
    connect(entry.saver.get(), &ZLDocumentSaver::locationDidChange, this, &ZLDocumentController::rememberSession);
    m_entries.push_back(std::move(entry));
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
        [document](const Entry& entry) { return entry.document.get() == document; });
    Entry entry = std::move(*found);
    m_entries.erase(found);
    rememberSession();
    Q_EMIT didCloseDocument(document);
    // The call may come out of one of the document's own signals.
    entry.saver.reset();
    document->setParent(this);
    entry.document.release()->deleteLater();
}

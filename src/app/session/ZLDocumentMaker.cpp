#include "app/session/ZLDocumentMaker.h"

#include "document/ZLUnreadableDocument.h"
#include "document/listening/ZLDocumentListening.h"
#include "platform/ZLBoundedFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(sessionLog, "zelta.app.session", QtInfoMsg)

}

ZLDocumentMaker::ZLDocumentMaker(ZLDocumentEnvironment environment, ZLSavingMachinery machinery,
    const ZLRecoveryFolder& recoveryFolder, NewName newName)
    : m_environment(std::move(environment))
    , m_machinery(std::move(machinery))
    , m_recoveryFolder(recoveryFolder)
    , m_newName(std::move(newName))
{
}

ZLSavedDocument ZLDocumentMaker::makeUntitled() const
{
    auto document = makeDocument();
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery);
    return { std::move(document), std::move(saver) };
}

ZLSavedDocument ZLDocumentMaker::makeUntitledFrom(const ZLDocumentContents& contents) const
{
    auto document = makeDocument();
    document->readFromData(ZLDocumentFile::encode(contents));
    return keepAtOnce(std::move(document));
}

ZLResult<ZLSavedDocument> ZLDocumentMaker::createFile(const QString& path) const
{
    ZLSavedDocument made = makeUntitled();
    ZLStatus saved = ZLDone {};
    made.saver->saveAs(path, [&saved](const ZLStatus& status) { saved = status; });
    made.saver->settle(QDeadlineTimer(ZLSilentDisk::CommandPatience));
    if (!saved)
        return saved.error();
    return made;
}

ZLResult<ZLSavedDocument> ZLDocumentMaker::readFile(const QString& path) const
{
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
    if (!bytes)
        return bytes.error();
    auto read = readDocument(path, bytes.value());
    if (!read)
        return read.error();
    auto document = std::move(read).value();
    document->setDisplayName(QFileInfo(path).fileName());
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery, path, bytes.value());
    return ZLSavedDocument { std::move(document), std::move(saver) };
}

ZLResult<ZLSavedDocument> ZLDocumentMaker::readRecoveryFile(std::unique_ptr<ZLRecoveryFile> file) const
{
    const auto bytes = ZLBoundedFile::read(file->path(), ZLFileBound::Document, ZLFileLinks::Refuse);
    if (!bytes)
        return bytes.error();
    auto read = readDocument(file->path(), bytes.value());
    if (!read)
        return read.error();
    auto document = std::move(read).value();
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery, std::move(file));
    return ZLSavedDocument { std::move(document), std::move(saver) };
}

ZLSavedDocument ZLDocumentMaker::rebuild(ZLRecoveredDocument recovered, const ZLFoundFile& file) const
{
    const ZLJournaledDocument& journal = recovered.journal;
    auto document = makeDocumentFrom(journal, recovered.file->listeningPath());
    if (!journal.filePath.isEmpty())
        document->setDisplayName(QFileInfo(journal.filePath).fileName());
    auto saver = std::make_unique<ZLDocumentSaver>(
        *document, m_recoveryFolder, m_machinery, std::move(recovered.file), journal, file);
    return { std::move(document), std::move(saver) };
}

ZLSavedDocument ZLDocumentMaker::rebuildAside(const ZLRecoveredDocument& recovered) const
{
    auto document = makeDocumentFrom(recovered.journal, recovered.file->listeningPath());
    document->setDisplayName(QCoreApplication::translate("ZLDocumentMaker", "%1 (recovered)")
            .arg(QFileInfo(recovered.journal.filePath).fileName()));
    return keepAtOnce(std::move(document));
}

ZLSavedDocument ZLDocumentMaker::keepAtOnce(std::unique_ptr<ZLChapterDocument> document) const
{
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery);
    if (const ZLStatus saved = saver->saveNow(); !saved)
        qCWarning(sessionLog) << saved.error().message;
    return { std::move(document), std::move(saver) };
}

std::unique_ptr<ZLChapterDocument> ZLDocumentMaker::makeDocument() const
{
    auto document = std::make_unique<ZLChapterDocument>(m_environment);
    document->setDisplayName(m_newName());
    return document;
}

std::unique_ptr<ZLChapterDocument> ZLDocumentMaker::makeDocumentFrom(
    const ZLJournaledDocument& journal, const QString& listeningPath) const
{
    auto document = makeDocument();
    ZLDocumentContents contents = journal.contents;
    ZLDocumentListening::recover(contents.extras, listeningPath);
    document->readFromData(ZLDocumentFile::encode(contents));
    document->setInterruptedRecording(journal.interruption);
    return document;
}

ZLResult<std::unique_ptr<ZLChapterDocument>> ZLDocumentMaker::readDocument(
    const QString& path, const QByteArray& bytes) const
{
    auto document = makeDocument();
    if (!document->readFromData(bytes))
        return ZLUnreadableDocument::error(path, bytes);
    return document;
}

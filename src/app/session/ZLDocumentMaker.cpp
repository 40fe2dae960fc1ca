#include "app/session/ZLDocumentMaker.h"

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
    return keepAtOnce(makeDocumentOf(ZLDocumentParts::of(contents)));
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
    const auto read = ZLReadDocument::read(path);
    if (!read)
        return read.error();
    return make(path, read.value());
}

ZLSavedDocument ZLDocumentMaker::make(const QString& path, const ZLReadDocument& read) const
{
    auto document = makeDocumentOf(read.parts);
    document->setDisplayName(QFileInfo(path).fileName());
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery, path, read);
    return { std::move(document), std::move(saver) };
}

ZLResult<ZLSavedDocument> ZLDocumentMaker::readRecoveryFile(std::unique_ptr<ZLRecoveryFile> file) const
{
    const auto read = ZLReadDocument::read(file->path(), ZLFileLinks::Refuse);
    if (!read)
        return read.error();
    auto document = makeDocumentOf(read.value().parts);
    auto saver =
        std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery, std::move(file), read.value());
    return ZLSavedDocument { std::move(document), std::move(saver) };
}

ZLSavedDocument ZLDocumentMaker::rebuild(ZLFoundJournal found) const
{
    auto document = makeDocumentFrom(found.read);
    const QString& filePath = found.read.journal.filePath;
    if (!filePath.isEmpty())
        document->setDisplayName(QFileInfo(filePath).fileName());
    auto saver = std::make_unique<ZLDocumentSaver>(
        *document, m_recoveryFolder, m_machinery, std::move(found.holder), found.read);
    return { std::move(document), std::move(saver) };
}

ZLSavedDocument ZLDocumentMaker::rebuildAside(const ZLReadJournal& read) const
{
    auto document = makeDocumentFrom(read);
    document->setDisplayName(QCoreApplication::translate("ZLDocumentMaker", "%1 (recovered)")
            .arg(QFileInfo(read.journal.filePath).fileName()));
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

std::unique_ptr<ZLChapterDocument> ZLDocumentMaker::makeDocumentOf(const ZLDocumentParts& parts) const
{
    auto document = makeDocument();
    document->load(parts);
    return document;
}

std::unique_ptr<ZLChapterDocument> ZLDocumentMaker::makeDocumentFrom(const ZLReadJournal& read) const
{
    auto document = makeDocumentOf(read.parts);
    document->setInterruptedRecording(read.journal.interruption);
    return document;
}

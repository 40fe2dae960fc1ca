#include "app/ZLDocumentController.h"

#include "platform/ZLBoundedFile.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QScopedValueRollback>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(sessionLog, "zelta.app.session", QtInfoMsg)

}

QStringList ZLDocumentController::restoreSession()
{
    QStringList failures;
    {
        // Until everything is open again, the memory of it must not shrink to what is open so far.
        const QScopedValueRollback keeping(m_isSessionKept, true);
        const QScopedValueRollback bringingBack(m_isBringingBack, true);
        QStringList namedRecoveryFiles;
        const auto entries = m_openDocuments.load();
        for (const auto& entry : entries) {
            if (entry.kind == ZLOpenDocumentEntry::Kind::Recovery)
                namedRecoveryFiles.append(QFileInfo(entry.path).fileName());
            if (const auto opened = openEntry(entry); !opened)
                failures.append(opened.error().message);
        }
        failures += restoreKeptDocuments(namedRecoveryFiles);
    }
    if (m_entries.empty())
        newDocument();
    else
        rememberSession();
    return failures;
}

QStringList ZLDocumentController::restoreKeptDocuments(const QStringList& fileNamesToLeaveOut)
{
    const QScopedValueRollback bringingBack(m_isBringingBack, true);
    QStringList failures;
    QStringList recoveryFiles = m_recoveryFolder.files() + m_recoveryFolder.journaledFiles();
    recoveryFiles.sort();
    recoveryFiles.removeDuplicates();
    for (const QString& path : std::as_const(recoveryFiles)) {
        if (fileNamesToLeaveOut.contains(QFileInfo(path).fileName()))
            continue;
        if (const auto opened = openRecoveryFile(path); !opened)
            failures.append(opened.error().message);
    }
    return failures;
}

ZLResult<ZLChapterDocument*> ZLDocumentController::openEntry(const ZLOpenDocumentEntry& entry)
{
    if (entry.kind == ZLOpenDocumentEntry::Kind::File)
        return openDocument(entry.path);
    // Only the name counts: an entry must not lead out of the folder whose files are ours to delete.
    return openRecoveryFile(m_recoveryFolder.path() + u'/' + QFileInfo(entry.path).fileName());
}

ZLResult<ZLChapterDocument*> ZLDocumentController::openRecoveryFile(const QString& path)
{
    ZLChapterDocument* const nothing = nullptr;
    auto claimed = m_recoveryFolder.claim(path);
    if (!claimed)
        return claimed.error();
    auto file = std::move(claimed).value();
    if (!file)
        return nothing;
    if (auto recovered = ZLDocumentRecovery::read(file))
        return openRecovered(std::move(*recovered));
    if (QFileInfo(path).size() == 0) {
        file->remove();
        return nothing;
    }
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document, ZLFileLinks::Refuse);
    if (!bytes)
        return bytes.error();
    auto read = makeDocumentFrom(path, bytes.value());
    if (!read)
        return read.error();
    auto document = std::move(read).value();
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery, std::move(file));
    if (!saver->hasContent()) {
        saver->discard();
        return nothing;
    }
    return adopt({ std::move(document), std::move(saver) });
}

ZLResult<ZLChapterDocument*> ZLDocumentController::openRecovered(ZLRecoveredDocument recovered)
{
    const ZLJournaledDocument& journal = recovered.journal;
    const bool isUntitled = journal.filePath.isEmpty();
    const QString path = isUntitled ? recovered.file->path() : journal.filePath;
    if (ZLChapterDocument* open = isUntitled ? nullptr : documentAtPath(path))
        return open;
    const ZLFoundFile found = ZLBoundedFile::find(path, ZLFileBound::Document);
    // A file that is too large to be read is another program's as well.
    const bool isSuperseded = found.finding == ZLFileFinding::TooLarge
        || (!found.bytes.isEmpty()
            && (!journal.belongsTo(found.bytes) || (!isUntitled && journal.isWhollyIn(found.bytes))));
    if (isSuperseded) {
        std::optional<Entry> aside = makeEntrySetAside(recovered);
        // A titled document is read past its journal, which can wait until there is room for what is set aside.
        if (isUntitled || !aside || aside->saver->state() == ZLSavingState::Saved)
            recovered.file->removeJournal();
        recovered.file.reset();
        const auto opened = isUntitled ? openRecoveryFile(path) : openFile(path);
        // Behind the document that was asked for, which commands from outside are meant for.
        const QScopedValueRollback bringingBack(m_isBringingBack, true);
        if (aside)
            adopt(std::move(*aside));
        return opened;
    }
    auto document = makeDocument();
    document->readFromData(ZLDocumentFile::encode(journal.contents));
    document->setInterruptedRecording(journal.interruption);
    if (!isUntitled)
        document->setDisplayName(QFileInfo(path).fileName());
    auto saver = std::make_unique<ZLDocumentSaver>(
        *document, m_recoveryFolder, m_machinery, std::move(recovered.file), journal, found);
    return isUntitled ? adopt({ std::move(document), std::move(saver) })
                      : adoptOpened({ std::move(document), std::move(saver) }, path);
}

std::optional<ZLDocumentController::Entry> ZLDocumentController::makeEntrySetAside(
    const ZLRecoveredDocument& recovered) const
{
    if (!recovered.journal.hasChangesSinceFile)
        return std::nullopt;
    auto document = makeDocument();
    document->readFromData(ZLDocumentFile::encode(recovered.journal.contents));
    document->setDisplayName(tr("%1 (recovered)").arg(QFileInfo(recovered.journal.filePath).fileName()));
    document->setInterruptedRecording(recovered.journal.interruption);
    auto saver = std::make_unique<ZLDocumentSaver>(*document, m_recoveryFolder, m_machinery);
    // Nothing may be lost between here and there: it is in the other file before the journal goes.
    if (const ZLStatus saved = saver->saveNow(); !saved)
        qCWarning(sessionLog) << saved.error().message;
    return Entry { std::move(document), std::move(saver) };
}

void ZLDocumentController::rememberSession()
{
    if (m_isSessionKept)
        return;
    QList<ZLOpenDocumentEntry> entries;
    for (const Entry& entry : m_entries) {
        const QString recoveryName = QFileInfo(entry.saver->recoveryPath()).fileName();
        if (!entry.saver->isUntitled())
            entries.append({ ZLOpenDocumentEntry::Kind::File, entry.saver->path() });
        else if (!recoveryName.isEmpty())
            entries.append({ ZLOpenDocumentEntry::Kind::Recovery, recoveryName });
    }
    m_openDocuments.store(entries);
}

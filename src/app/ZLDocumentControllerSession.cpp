#include "app/ZLDocumentController.h"

#include <QFileInfo>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

QStringList ZLDocumentController::restoreSession()
{
    QStringList failures;
    const auto noteFailure = [&failures](const ZLResult<ZLChapterDocument*>& opened) {
        if (!opened)
            failures.append(opened.error().message);
    };
    {
        // Until everything is open again, the memory of it must not shrink to what is open so far.
        const QScopedValueRollback keeping(m_isSessionKept, true);
        QStringList namedRecoveryFiles;
        const auto entries = m_openDocuments.load();
        for (const auto& entry : entries) {
            if (entry.kind == ZLOpenDocumentEntry::Kind::Recovery)
                namedRecoveryFiles.append(QFileInfo(entry.path).fileName());
            noteFailure(openEntry(entry));
        }
        const auto recoveryFiles = m_recoveryFolder.files();
        for (const QString& path : recoveryFiles) {
            if (!namedRecoveryFiles.contains(QFileInfo(path).fileName()))
                noteFailure(openRecoveryFile(path));
        }
    }
    if (m_entries.empty())
        newDocument();
    else
        rememberSession();
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
    if (QFileInfo(path).size() == 0) {
        file->remove();
        return nothing;
    }
    auto read = readDocument(path);
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

#include "document/saving/ZLOpenFileList.h"

#include "document/saving/ZLOpenFileNote.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLPrivateFolder.h"
#include "platform/ZLStateFolder.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(openFilesLog, "zelta.document.open", QtInfoMsg)

const QString openListSuffix = QStringLiteral(".open");

QString openListsFolder()
{
    return ZLStateFolder::path() + u"/open"_s;
}

/// A name may hold a line break, but no byte 0.
QStringList pathsInList(const QByteArray& bytes)
{
    QStringList paths;
    const auto names = bytes.split('\0');
    for (const QByteArray& name : names) {
        if (!name.isEmpty())
            paths.append(QFile::decodeName(name));
    }
    return paths;
}

}

ZLOpenFileList& ZLOpenFileList::ofThisProcess()
{
    static ZLOpenFileList list;
    return list;
}

void ZLOpenFileList::add(const ZLOpenFileNote& note)
{
    m_notes.append(&note);
    publish();
}

void ZLOpenFileList::remove(const ZLOpenFileNote& note)
{
    m_notes.removeOne(&note);
    publish();
}

QStringList ZLOpenFileList::pathsHere(const ZLOpenFileNote* except) const
{
    QStringList paths;
    for (const ZLOpenFileNote* note : m_notes) {
        if (note != except)
            paths.append(note->path());
    }
    return paths;
}

QStringList ZLOpenFileList::pathsElsewhere() const
{
    QStringList paths;
    const auto lists = QDir(openListsFolder()).entryInfoList({ u'*' + openListSuffix }, QDir::Files, QDir::Name);
    for (const QFileInfo& list : lists) {
        if (m_listFile && list.filePath() == m_listPath)
            continue;
        const auto lock = ZLFileLock::tryLock(list.filePath());
        // Had we got it, its process would be gone.
        if (lock && !lock.value())
            paths += pathsInList(ZLBoundedFile::find(list.filePath(), ZLFileBound::List, ZLFileLinks::Refuse).bytes);
    }
    return paths;
}

void ZLOpenFileList::publish()
{
    if (m_notes.isEmpty()) {
        m_listFile.reset();
        return;
    }
    // The folder may have been cleared away since.
    if (!m_listFile || !QFile::exists(m_listPath))
        takeListFile();
    if (!m_listFile)
        return;
    QByteArray names;
    for (const ZLOpenFileNote* note : std::as_const(m_notes))
        names += QFile::encodeName(note->path()) + '\0';
    m_listFile->write(names);
}

void ZLOpenFileList::takeListFile()
{
    m_listFile.reset();
    for (const QString& folder : { ZLStateFolder::path(), openListsFolder() }) {
        if (const ZLStatus prepared = ZLPrivateFolder::prepare(folder); !prepared)
            qCWarning(openFilesLog) << prepared.error().message;
    }
    // A reader may take a list that is just being made for that of a dead process: then another name is tried.
    for (int attempt = 0; attempt < 10 && !m_listFile; ++attempt) {
        m_listPath =
            openListsFolder() + u'/' + QString::number(QRandomGenerator::system()->generate64(), 36) + openListSuffix;
        auto file = ZLFileLock::tryLock(m_listPath);
        if (file)
            m_listFile = std::move(file).value();
        else
            qCWarning(openFilesLog) << "other processes cannot know what is open:" << file.error().message;
    }
}

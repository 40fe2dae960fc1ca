#include "document/saving/ZLDocumentLock.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace {

/// The lines of a lock file: machine, process. Whoever wrote it is not to be trusted with more than one line's space.
QStringList linesOfLockFile(const QString& path)
{
    constexpr qint64 longestLockFile = 400;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.read(longestLockFile)).split(u'\n', Qt::SkipEmptyParts);
}

QString describeHolder(const QStringList& lines)
{
    if (lines.size() < 2)
        return QCoreApplication::translate("ZLDocumentLock", "another program");
    return QCoreApplication::translate("ZLDocumentLock", "%1, process %2").arg(lines.at(0), lines.at(1));
}

void writeHolder(const QString& path)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(u"%1\n%2\n"_s.arg(QSysInfo::machineHostName()).arg(QCoreApplication::applicationPid()).toUtf8());
}

}

ZLDocumentLock::ZLDocumentLock(const QString& documentPath)
{
    const QString path = lockPath(documentPath);
    const QStringList lines = linesOfLockFile(path);
    // Not every network drive carries locks from one machine to another, but every one carries a file.
    if (!lines.isEmpty() && lines.first() != QSysInfo::machineHostName()) {
        m_otherHolder = describeHolder(lines);
        return;
    }
    auto lock = ZLFileLock::tryLock(path);
    if (!lock)
        return;
    m_lock = std::move(lock).value();
    if (m_lock)
        writeHolder(path);
    else
        m_otherHolder = describeHolder(lines);
}

QString ZLDocumentLock::lockPath(const QString& documentPath)
{
    const QFileInfo file(documentPath);
    const QFileInfo target(file.exists() ? file.canonicalFilePath() : documentPath);
    return u"%1/.%2.lock"_s.arg(target.path(), target.fileName());
}

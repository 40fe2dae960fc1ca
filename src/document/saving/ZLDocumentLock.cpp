#include "document/saving/ZLDocumentLock.h"

#include "platform/ZLBoundedFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace {

/// The lines of a lock file: machine, process. A file that is too large for one is that of another program, whose name
/// it does not tell.
QStringList linesOfLockFile(const QString& path)
{
    const ZLFoundFile found = ZLBoundedFile::find(path, ZLFileBound::Lock, ZLFileLinks::Refuse);
    if (found.finding == ZLFileFinding::TooLarge)
        return { QString() };
    return QString::fromUtf8(found.bytes).split(u'\n', Qt::SkipEmptyParts);
}

QString describeHolder(const QStringList& lines)
{
    if (lines.size() < 2)
        return QCoreApplication::translate("ZLDocumentLock", "another program");
    // The words come from another program, so they get no more than one line's space.
    constexpr qsizetype longestWord = 100;
    return QCoreApplication::translate("ZLDocumentLock", "%1, process %2")
        .arg(lines.at(0).left(longestWord), lines.at(1).left(longestWord));
}

/// A name as long as names can be leaves no room for more.
QString lockNameFor(const QString& name)
{
    constexpr qsizetype longestName = 255;
    QString lockName = u".%1.lock"_s.arg(name);
    if (QFile::encodeName(lockName).size() <= longestName)
        return lockName;
    const QByteArray digest = QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha256).toHex();
    return u".%1.lock"_s.arg(QLatin1StringView(digest));
}

QByteArray thisHolder()
{
    return u"%1\n%2\n"_s.arg(QSysInfo::machineHostName()).arg(QCoreApplication::applicationPid()).toUtf8();
}

}

ZLDocumentLock::ZLDocumentLock(const QString& documentPath)
    : m_note(documentPath)
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
        m_lock->write(thisHolder());
    else
        m_otherHolder = describeHolder(lines);
}

QString ZLDocumentLock::lockPath(const QString& documentPath)
{
    const QFileInfo file(documentPath);
    const QFileInfo target(file.exists() ? file.canonicalFilePath() : documentPath);
    return u"%1/%2"_s.arg(target.path(), lockNameFor(target.fileName()));
}

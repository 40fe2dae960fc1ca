#include "platform/ZLAtomicFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

ZLError fileFailure(const QString& path, const QString& reason)
{
    return ZLError { QStringLiteral("%1: %2").arg(path, reason) };
}

}

ZLStatus ZLAtomicFile::write(const QString& path, const QByteArray& bytes)
{
    // A device or a pipe would be replaced by an ordinary file, /dev/null for everyone on the machine.
    if (const QFileInfo target(path); target.exists() && !target.isFile())
        return fileFailure(path, QCoreApplication::translate("ZLAtomicFile", "This is no ordinary file."));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fileFailure(path, file.errorString());
    if (file.write(bytes) != bytes.size() || !file.commit())
        return fileFailure(path, file.errorString());
    return ZLDone {};
}

ZLResult<QByteArray> ZLAtomicFile::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fileFailure(path, file.errorString());
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return fileFailure(path, file.errorString());
    return bytes;
}

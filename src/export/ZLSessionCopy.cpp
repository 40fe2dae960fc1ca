#include "export/ZLSessionCopy.h"

#include "platform/ZLAtomicFile.h"

QString ZLSessionCopy::pathFor(const QString& path)
{
    return path + QStringLiteral(".bak");
}

ZLStatus ZLSessionCopy::keep(const QString& path, const QByteArray& bytes)
{
    return ZLAtomicFile::write(pathFor(path), bytes);
}

#include "platform/ZLFileName.h"

#include <QCoreApplication>
#include <QFileInfo>

QString ZLFileName::refusal(const QString& path)
{
    if (!path.contains(QChar(QChar::ReplacementCharacter)) || QFileInfo::exists(path))
        return {};
    return QCoreApplication::translate("ZLFileName", "The name is not UTF-8 text. Rename the file.");
}

#include "app/ui/menus/ZLGuide.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

QStringList ZLGuide::standardFolders()
{
    const QDir program(QCoreApplication::applicationDirPath());
    QStringList folders;
    // Beside an installed program, and beside one in build/NAME/src/app.
    for (const QString& folder : { u"../share/doc/zelta"_s, u"../../docs"_s })
        folders.append(QDir::cleanPath(program.filePath(folder)));
    const auto dataFolders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString& dataFolder : dataFolders)
        folders.append(dataFolder + "/doc/zelta"_L1);
    return folders;
}

QString ZLGuide::pathIn(const QStringList& folders)
{
    //: The page of the guide, one for each language.
    const QString ownPage = QCoreApplication::translate("ZLGuide", "GUIDE.html");
    for (const QString& folder : folders) {
        for (const QString& name : { ownPage, u"GUIDE.html"_s }) {
            const QFileInfo file(QDir(folder), name);
            if (file.isFile() && file.isReadable())
                return file.absoluteFilePath();
        }
    }
    return {};
}

#include "app/ui/ZLGuide.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

/// From build/NAME/src/app to the folder that holds build.
constexpr int mostFoldersUpToTheSources = 4;

}

QStringList ZLGuide::standardFolders()
{
    QDir folder(QCoreApplication::applicationDirPath());
    QStringList folders { QDir::cleanPath(folder.filePath(u"../share/doc/zelta"_s)) };
    const auto dataFolders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString& dataFolder : dataFolders)
        folders.append(dataFolder + "/doc/zelta"_L1);
    for (int step = 0; step < mostFoldersUpToTheSources && folder.cdUp(); ++step)
        folders.append(folder.filePath(u"docs"_s));
    return folders;
}

QString ZLGuide::pathIn(const QStringList& folders)
{
    for (const QString& folder : folders) {
        // The page is for reading; the text it is made from will do where there is no page.
        for (const QString& name : { u"GUIDE.html"_s, u"GUIDE.md"_s }) {
            const QFileInfo file(QDir(folder), name);
            if (file.isFile() && file.isReadable())
                return file.absoluteFilePath();
        }
    }
    return {};
}

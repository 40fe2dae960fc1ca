#include "platform/filemanager/ZLFileManager.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

void ZLFileManager::showFile(
    const QString& path, const std::function<void(const QString& folder)>& openFolder, const QDBusConnection& bus)
{
    if (!bus.isConnected()) {
        openFolder(QFileInfo(path).absolutePath());
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s,
        u"/org/freedesktop/FileManager1"_s, u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QFileInfo file(path);
    const QString url = QString::fromLatin1(QUrl::fromLocalFile(file.absoluteFilePath()).toEncoded());
    // The second argument is the start-up id of the desktop, which Zelta does not take part in.
    call << QStringList { url } << QString();
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call), QCoreApplication::instance());
    QObject::connect(
        answer, &QDBusPendingCallWatcher::finished, answer, [answer, openFolder, folder = file.absolutePath()] {
            answer->deleteLater();
            if (answer->isError())
                openFolder(folder);
        });
}

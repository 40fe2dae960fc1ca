#pragma once

#include <QDBusConnection>
#include <QString>

#include <functional>

/// The desktop's file manager, over `org.freedesktop.FileManager1`.
namespace ZLFileManager {

/// Opens the folder of the file at `path` with the file selected, and returns at once. Where no file manager offers
/// that, `openFolder` is called with the folder's path, at once or later.
void showFile(const QString& path, const std::function<void(const QString& folder)>& openFolder,
    const QDBusConnection& bus = QDBusConnection::sessionBus());

}

#pragma once

#include "settings/ZLSettingsManager.h"

#include <QTemporaryDir>

/// Settings as on a first launch, in a file that ends with the test. The system font size is 10 points.
class ZLTemporarySettings {
public:
    ZLTemporarySettings()
    {
        ZLSettingsManager::useFile(path());
        ZLSettingsManager::registerDefaults(10.0F);
    }

    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("zelta.conf")); }
    /// Reads everything anew from the file, as the next launch does.
    void relaunch() const { ZLSettingsManager::useFile(path()); }

private:
    QTemporaryDir m_folder;
};

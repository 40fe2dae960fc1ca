#pragma once

#include "platform/ZLFileError.h"

#include <QCoreApplication>
#include <QString>

/// A disk that does not answer: how long it is waited for, and what is told of it.
class ZLSilentDisk {
    Q_DECLARE_TR_FUNCTIONS(ZLSilentDisk)

public:
    /// @name Milliseconds
    /// @{
    static constexpr int CommandPatience = 3000; ///< How long a command waits.
    static constexpr int EndPatience = 5000; ///< How long the end of the program waits, for all disks together.
    /// @}

    [[nodiscard]] static ZLError error(const QString& path)
    {
        return ZLFileError::because(path, tr("The disk does not answer"));
    }
};

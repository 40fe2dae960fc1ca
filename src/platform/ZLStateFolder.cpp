#include "platform/ZLStateFolder.h"

#include <QDir>

QString ZLStateFolder::path()
{
    const QString base = qEnvironmentVariable("XDG_STATE_HOME");
    // A relative path is to be ignored, or each working folder would have a state of its own.
    if (QDir::isAbsolutePath(base))
        return QDir::cleanPath(base + QStringLiteral("/zelta"));
    return QDir::homePath() + QStringLiteral("/.local/state/zelta");
}

#pragma once

#include <QString>

/// The extension of a file's name, which stands without its dot here. Capitals make no difference.
namespace ZLFileExtension {

[[nodiscard]] inline bool endsName(const QString& path, const QString& extension)
{
    return path.endsWith(QChar(u'.') + extension, Qt::CaseInsensitive);
}

/// `path` as it is when it ends in the extension, else with the extension at its end: "Episode 1.5" becomes
/// "Episode 1.5.psc".
[[nodiscard]] inline QString completed(const QString& path, const QString& extension)
{
    return endsName(path, extension) ? path : path + u'.' + extension;
}

}

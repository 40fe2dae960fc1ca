#pragma once

#include <QString>
#include <QStringList>

/// The page of the user's guide, in the language of the program where there is one. It is installed with the program's
/// documentation, and made in the build folder for a program that runs from there.
namespace ZLGuide {

/// Absolute paths, the place to look at first in front.
[[nodiscard]] QStringList standardFolders();

/// The guide in the first of `folders` that has one; empty when there is none.
[[nodiscard]] QString pathIn(const QStringList& folders);

}

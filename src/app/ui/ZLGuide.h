#pragma once

#include <QString>
#include <QStringList>

/// The file of the user's guide. It is installed with the program's documentation; a program that runs from its build
/// folder takes the one of the source folder.
namespace ZLGuide {

/// Absolute paths, the place to look at first in front.
[[nodiscard]] QStringList standardFolders();

/// The guide in the first of `folders` that has one; empty when there is none.
[[nodiscard]] QString pathIn(const QStringList& folders);

}

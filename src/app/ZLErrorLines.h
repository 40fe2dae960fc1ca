#pragma once

#include <QStringList>

/// What the program says on standard error when it could not do something.
namespace ZLErrorLines {

/// "zelta: show.zelta: No such file" as one line, whatever the file is called, with a line feed.
[[nodiscard]] QString line(const QString& message);
/// A line each, to standard error.
void print(const QStringList& messages);

}

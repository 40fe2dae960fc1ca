#pragma once

#include <QString>

/// Windows that are bare widgets, which a screen reader takes for no windows by themselves.
namespace ZLAccessibleWindows {

/// Makes those of this class windows to a screen reader. To be called before the first one is made.
void addClass(const QString& className);

}

#pragma once

#include "delivery/fit/ZLFit.h"

#include <QByteArray>
#include <QString>

/// A fit, as a person and as a program reads it.
namespace ZLFitReport {

/// One line a chapter: the old time, the new one, what became of it, how sure that is, and its title.
[[nodiscard]] QString table(const ZLFit& fit);
/// {"chapters":[…],"pieces":[…]}, see docs/FORMATS.md.
[[nodiscard]] QByteArray json(const ZLFit& fit);
/// "kept" and so on, for a person.
[[nodiscard]] QString stateText(ZLMomentState state);

}

#pragma once

#include "delivery/fit/ZLFit.h"

#include <QByteArray>
#include <QString>

/// A fit, as a person and as a program reads it.
namespace ZLFitReport {

/// One line a chapter: the old time, the new one, what became of it, how sure that is, and its title. Then movedText().
[[nodiscard]] QString table(const ZLFit& fit);
/// Which parts of the show the file has out of order too, a teaser for example, in a sentence each; empty without one.
[[nodiscard]] QString movedText(const ZLFit& fit);
/// {"chapters":[…],"pieces":[…]} and perhaps "moved", see docs/FORMATS.md.
[[nodiscard]] QByteArray json(const ZLFit& fit);
/// "kept" and so on, for a person.
[[nodiscard]] QString stateText(ZLMomentState state);

}

#pragma once

#include <QByteArray>

/// The scheme by which bytes of a tag never look like the beginning of a sound frame: a 0 behind each 255 that is
/// followed by 0 or by 224 and more.
namespace ZLID3Unsynchronisation {

[[nodiscard]] QByteArray decoded(const QByteArray& bytes);

}

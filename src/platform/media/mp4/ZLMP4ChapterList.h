#pragma once

#include "platform/media/ZLMediaChapter.h"

#include <QByteArray>

/// Chapters as the list `chpl`, which other players read than those that read a text track.
namespace ZLMP4ChapterList {

/// The count has one byte.
inline constexpr qsizetype mostChapters = 255;

/// From the contents of the atom. The last chapter ends at `length`, in milliseconds.
[[nodiscard]] ZLMediaChapters read(const QByteArray& contents, qint64 length);

/// The contents of the atom. A title is cut behind 255 bytes.
[[nodiscard]] QByteArray bytes(const ZLMediaChapters& chapters);

}

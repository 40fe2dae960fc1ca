#pragma once

#include "model/ZLChapter.h"

#include <cstdint>

/// Texts and numbers of a chapter that several formats share.
namespace ZLChapterText {

/// Distance from the start of the recording in milliseconds, truncated; a time before the start loses its sign.
[[nodiscard]] std::uint64_t unsignedMilliseconds(const ZLChapter& chapter);

/// "01:02:05" of a number of milliseconds, with hours of two digits at least.
[[nodiscard]] QString hoursMinutesSeconds(std::uint64_t milliseconds);

/// Adds "time title <link>" and a line feed; the brackets only when there is a link. Nothing is escaped.
void appendListLine(QString& text, const QString& time, const ZLChapter& chapter);

}

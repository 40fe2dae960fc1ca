#pragma once

#include "model/ZLChapter.h"

#include <QByteArray>
#include <QString>

/// The contents of one document as text.
namespace ZLChapterListing {

/// An aligned table of `chapters`, in the order given, and a line with the recorded `duration` in seconds. Control
/// characters are replaced, so that a row is a line and no text can command a terminal.
[[nodiscard]] QString table(const ZLChapterSequence& chapters, double duration);

/// A JSON object (RFC 8259) with "duration" in seconds, "chapters" and "templates". Each chapter has "timeStamp" in
/// seconds, "enabled", "title", "link", "tags", "date" (ISO 8601, UTC) and "uuid". Absent texts, unknown dates and
/// numbers that JSON cannot hold are null.
[[nodiscard]] QByteArray json(const ZLChapterSequence& chapters, double duration, const ZLChapterSequence& templates);

}

#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// Reads the times that a person types.
namespace ZLTimeEntry {

/// How a time is typed, for a person.
[[nodiscard]] QString form();
/// The same for a wall-clock time.
[[nodiscard]] QString dateForm();

/// Seconds from "[-]hours:minutes:seconds.milliseconds", or nothing when the text has another shape. Digits are read
/// leniently: anything unreadable is 0, and minutes and seconds may exceed 59. The piece after the point counts
/// milliseconds and is no decimal fraction.
[[nodiscard]] std::optional<double> secondsFromText(const QString& text);

/// The format of a wall-clock time, "14:03:07.250 2024-05-01" in the local time zone. Days before 15 October 1582 have
/// the names of the Julian calendar.
[[nodiscard]] QString textFromDate(const QDateTime& date);

/// The moment from such a text. A text of another shape reads as 1 January 2001, 00:00 UTC.
[[nodiscard]] QDateTime dateFromText(const QString& text);

/// Milliseconds by which chapters are to be moved; a text that is no number reads as 0.
[[nodiscard]] float millisecondsFromText(const QString& text);

}

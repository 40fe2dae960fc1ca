#pragma once

#include "model/ZLChapter.h"

/// The chapters of all measurements.
namespace BenchChapters {

/// From one chapter to the next.
constexpr double Seconds = 3.25;

/// `count` of them from the start on, each with a title, a link and a date.
inline ZLChapterSequence list(int count)
{
    ZLChapterSequence chapters;
    for (int number = 0; number < count; ++number) {
        const auto chapter = std::make_shared<ZLChapter>();
        chapter->setTimeStamp(number * Seconds);
        chapter->setTitle(QStringLiteral("Topic number %1").arg(number));
        chapter->setLink(QStringLiteral("https://example.org/shows/%1").arg(number));
        chapter->setRealDate(QDateTime::fromMSecsSinceEpoch(1'700'000'000'000 + number * 3250LL, Qt::UTC));
        chapters.append(chapter);
    }
    return chapters;
}

}

#pragma once

#include "model/ZLChapterManager.h"

#include <QStringList>

/// Short ways to make chapters and to read lists of them.
namespace ZLTestChapters {

inline ZLChapterPointer chapterAt(double seconds, const QString& title = QStringLiteral(""))
{
    auto chapter = std::make_shared<ZLChapter>();
    chapter->setTimeStamp(seconds);
    chapter->setTitle(title);
    return chapter;
}

inline ZLChapterPointer titled(const QString& title)
{
    return chapterAt(0.0, title);
}

inline QList<double> times(const ZLChapterSequence& chapters)
{
    QList<double> times;
    for (const auto& chapter : chapters)
        times.append(chapter->timeStamp());
    return times;
}

inline QStringList titles(const ZLChapterSequence& chapters)
{
    QStringList titles;
    for (const auto& chapter : chapters)
        titles.append(chapter->title());
    return titles;
}

}

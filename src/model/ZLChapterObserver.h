#pragma once

class ZLChapter;

/// Hears of every change of the chapters that it watches. See ZLChapter::addObserver().
class ZLChapterObserver {
public:
    /// The time was `formerTime` before.
    virtual void chapterDidChangeTime(const ZLChapter& chapter, double formerTime) = 0;
    /// Any property is another one now, the time included.
    virtual void chapterDidChange(const ZLChapter& chapter) = 0;

protected:
    ~ZLChapterObserver() = default;
};

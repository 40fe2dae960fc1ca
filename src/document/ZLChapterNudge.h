#pragma once

#include "model/ZLChapter.h"
#include "platform/ZLHostClock.h"

#include <QObject>

#include <memory>

class ZLChapterDocument;

/// Moves the selected chapter a little earlier or later. Presses on the same chapter with nothing in between, each at
/// most a second after the one before, are one undoable step.
class ZLChapterNudge : public QObject {
    Q_OBJECT

public:
    /// `document` has to outlive it; `clock` tells how far presses lie apart.
    explicit ZLChapterNudge(ZLChapterDocument& document,
        std::shared_ptr<const ZLHostClock> clock = std::make_shared<ZLSteadyHostClock>(), QObject* parent = nullptr);

    /// A chapter at 0 or later stops at 0. Nothing happens without a selected chapter.
    void moveSelectedChapterBySeconds(double seconds);

    /// Where a chapter at `time` comes to lie, to the microsecond, so that many small moves add up.
    [[nodiscard]] static double movedTime(double time, double seconds);

private:
    void forgetLastPress();

    ZLChapterDocument& m_document;
    std::shared_ptr<const ZLHostClock> m_clock;
    std::weak_ptr<ZLChapter> m_lastChapter;
    double m_lastPress = 0.0;
    bool m_isMoving = false;
};

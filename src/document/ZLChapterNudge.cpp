#include "document/ZLChapterNudge.h"

#include "document/ZLChapterDocument.h"
#include "model/ZLTimeText.h"

#include <QScopedValueRollback>

#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double longestPause = 1.0;
constexpr double microsecondsPerSecond = 1.0e6;

}

ZLChapterNudge::ZLChapterNudge(ZLChapterDocument& document, std::shared_ptr<const ZLHostClock> clock, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_clock(std::move(clock))
{
    connect(&document.undoManager(), &ZLUndoManager::historyDidChange, this, &ZLChapterNudge::forgetLastPress);
    connect(&document.selectionModel(), &QItemSelectionModel::selectionChanged, this, &ZLChapterNudge::forgetLastPress);
}

void ZLChapterNudge::moveSelectedChapterBySeconds(double seconds)
{
    const ZLChapterPointer chapter = m_document.chapterManager().chapterAtIndex(m_document.selectedRow());
    if (!chapter)
        return;
    const bool goesOn = m_lastChapter.lock() == chapter && m_clock->now() - m_lastPress <= longestPause;
    {
        const QScopedValueRollback moving(m_isMoving, true);
        const ZLUndoGroup group(m_document.undoManager());
        m_document.updateChapterToTime(chapter, movedTime(chapter->timeStamp(), seconds));
        if (goesOn)
            m_document.undoManager().joinLastGroup();
    }
    m_lastChapter = chapter;
    m_lastPress = m_clock->now();
}

double ZLChapterNudge::movedTime(double time, double seconds)
{
    const double microseconds = std::round((time + seconds) * microsecondsPerSecond);
    if (!std::isfinite(microseconds))
        return time;
    double moved = microseconds / microsecondsPerSecond;
    if (time >= 0.0 && !(moved > 0.0))
        return 0.0;
    // The text of a time is truncated: what lies a hair below a millisecond would read as the one before.
    if (moved > 0.0 && ZLTimeText::truncated(moved * 1000.0) < ZLTimeText::truncated(microseconds / 1000.0))
        moved = std::nextafter(moved, std::numeric_limits<double>::infinity());
    return moved;
}

void ZLChapterNudge::forgetLastPress()
{
    if (!m_isMoving)
        m_lastChapter.reset();
}

#include "following/ZLChapterReadings.h"

#include "document/ZLChapterDocument.h"
#include "document/shared/ZLChapterMoves.h"

#include <algorithm>
#include <ranges>

using namespace Qt::StringLiterals;

namespace {

const QString takeRecordersActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Take Recorder's Times"));
const QString takeZeltasActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Take Zelta's Times"));

/// A mark that is noted later than this is none that was made just now. No stamp of a press is older.
constexpr double latestNote = 2.5;

ZLReadingOf takenOf(const ZLDocumentExtras& extras, const QString& uuid)
{
    return extras.ofChapter(uuid, ZLReadingKey::Taken).toString() == "Recorder"_L1 ? ZLReadingOf::Recorder
                                                                                   : ZLReadingOf::Zelta;
}

struct TakenTime {
    ZLChapterPointer chapter;
    double time = 0.0;
    /// As it stands under ZLReadingKey::Taken.
    QVariant taken;
};

/// The step outlives the object that asked for it, so it needs the document alone.
void exchange(ZLChapterDocument& document, const QList<TakenTime>& times, const QString& actionName)
{
    const ZLUndoGroup group(document.undoManager());
    QList<TakenTime> former;
    ZLChapterSequence moved;
    for (const TakenTime& time : times) {
        const QString& uuid = time.chapter->uuid();
        former.append(
            { time.chapter, time.chapter->timeStamp(), document.extras().ofChapter(uuid, ZLReadingKey::Taken) });
        document.extras().keepOfChapter(uuid, ZLReadingKey::Taken, time.taken);
        time.chapter->setTimeStamp(time.time);
        moved.append(time.chapter);
    }
    document.undoManager().registerStep([&document, former, actionName] { exchange(document, former, actionName); });
    document.undoManager().setActionName(actionName);
    document.chapterManager().sortChapters();
    document.noteChange({ ZLDocumentChange::Times, moved });
}

}

ZLChapterReadings::ZLChapterReadings(ZLChapterDocument& document)
    : m_document(document)
{
}

QStringList ZLChapterReadings::noteNewChapters(double ahead)
{
    QStringList titles;
    ZLDocumentExtras& extras = m_document.extras();
    const double now = m_document.currentDuration();
    const ZLChapterSequence chapters = m_document.chapterManager().allChapters();
    for (const ZLChapterPointer& chapter : chapters | std::views::reverse) {
        const double time = chapter->timeStamp();
        if (time < now - latestNote)
            break;
        const QString& uuid = chapter->uuid();
        if (time > now || extras.ofChapter(uuid, ZLReadingKey::Zelta).isValid())
            continue;
        extras.keepOfChapter(uuid, ZLReadingKey::Zelta, time);
        extras.keepOfChapter(uuid, ZLReadingKey::Recorder, std::max(0.0, time + ahead));
        titles.append(chapter->title());
    }
    return titles;
}

void ZLChapterReadings::noteAgainSince(double reading, double ahead)
{
    ZLDocumentExtras& extras = m_document.extras();
    const ZLChapterSequence chapters = m_document.chapterManager().allChapters();
    for (const ZLChapterPointer& chapter : chapters) {
        const QVariant time = extras.ofChapter(chapter->uuid(), ZLReadingKey::Zelta);
        if (time.isValid() && time.toDouble() >= reading)
            extras.keepOfChapter(chapter->uuid(), ZLReadingKey::Recorder, std::max(0.0, time.toDouble() + ahead));
    }
}

bool ZLChapterReadings::hasAny() const
{
    const ZLChapterSequence chapters = m_document.chapterManager().allChapters();
    return std::ranges::any_of(chapters, [this](const ZLChapterPointer& chapter) {
        return m_document.extras().ofChapter(chapter->uuid(), ZLReadingKey::Zelta).isValid();
    });
}

void ZLChapterReadings::takeForAll(ZLReadingOf wanted)
{
    ZLDocumentExtras& extras = m_document.extras();
    const QVariant taken = wanted == ZLReadingOf::Recorder ? QVariant(u"Recorder"_s) : QVariant();
    QList<TakenTime> times;
    const ZLUndoGroup group(m_document.undoManager());
    const ZLChapterSequence chapters = m_document.chapterManager().allChapters();
    for (const ZLChapterPointer& chapter : chapters) {
        const QVariant zelta = extras.ofChapter(chapter->uuid(), ZLReadingKey::Zelta);
        const QVariant recorder = extras.ofChapter(chapter->uuid(), ZLReadingKey::Recorder);
        if (!zelta.isValid() || !recorder.isValid() || takenOf(extras, chapter->uuid()) == wanted)
            continue;
        const double ahead = recorder.toDouble() - zelta.toDouble();
        const double time = std::max(0.0, chapter->timeStamp() + (wanted == ZLReadingOf::Recorder ? ahead : -ahead));
        ZLChapterMoves::addWithClock(extras, chapter->uuid(), time - chapter->timeStamp());
        times.append({ chapter, time, taken });
    }
    if (!times.isEmpty())
        exchange(m_document, times, wanted == ZLReadingOf::Recorder ? takeRecordersActionName : takeZeltasActionName);
}

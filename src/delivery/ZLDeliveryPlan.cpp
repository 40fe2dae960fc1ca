#include "delivery/ZLDeliveryPlan.h"

#include "delivery/ZLDeliveryFindings.h"
#include "platform/media/file/ZLMediaFile.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace {

/// Longer than any file, and far from where a number of milliseconds ends.
constexpr double farAway = 1e12;

/// Never later than the time. What lies less than a microsecond below a millisecond is meant to be that millisecond.
qint64 milliseconds(double seconds)
{
    const double bounded = std::isnan(seconds) ? farAway : std::clamp(seconds, -farAway, farAway);
    return qint64(std::floor(std::round(bounded * 1e6) / 1e3));
}

/// As a file can hold it: no character that ends a text, and no half of a character.
QString storable(const QString& text)
{
    return QString::fromUtf8(text.toUtf8()).replace(QChar(0), u' ');
}

ZLMediaChapters enabledChapters(const ZLChapterSequence& chapters, double shift)
{
    ZLMediaChapters enabled;
    for (const ZLChapterPointer& chapter : chapters) {
        if (chapter->isEnabled())
            enabled.append({ .start = milliseconds(chapter->timeStamp() + shift),
                .title = storable(chapter->title()),
                .link = storable(chapter->link()) });
    }
    std::ranges::stable_sort(enabled, {}, &ZLMediaChapter::start);
    return enabled;
}

void setEnds(ZLMediaChapters& chapters, qint64 length)
{
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const bool isLast = index + 1 == chapters.size();
        chapters[index].end = std::max(chapters.at(index).start, isLast ? length : chapters.at(index + 1).start);
    }
}

}

ZLResult<ZLDeliveryPlan> ZLDeliveryPlan::make(const ZLChapterSequence& chapters, const QString& audioPath, double shift)
{
    const auto contents = ZLMediaFile::read(audioPath);
    if (!contents)
        return contents.error();
    return make(chapters, audioPath, contents.value(), shift);
}

ZLDeliveryPlan ZLDeliveryPlan::make(
    const ZLChapterSequence& chapters, const QString& audioPath, const ZLMediaContents& contents, double shift)
{
    ZLDeliveryPlan plan { .audioPath = audioPath, .now = contents, .toCome = enabledChapters(chapters, shift) };
    plan.findings = ZLDeliveryFindings::applied(plan.now, plan.toCome);
    setEnds(plan.toCome, plan.now.length);
    return plan;
}

QString ZLDeliveryPlan::fileName() const
{
    return QFileInfo(audioPath).fileName();
}

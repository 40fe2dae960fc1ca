#include "delivery/fit/ZLFit.h"

#include <algorithm>

ZLFit ZLFit::of(const ZLShowMarks& marks, const ZLSoundAlignment& alignment, double zero)
{
    ZLFit fit { {}, alignment, zero };
    const ZLShowMap map(alignment);
    for (qsizetype index = 0; index < marks.size(); ++index) {
        const double time = marks[index].showTime;
        const double end = index + 1 < marks.size() ? marks[index + 1].showTime : alignment.showLength - zero;
        fit.chapters.append({ marks[index], map.place(time + zero, end + zero) });
    }
    return fit;
}

qsizetype ZLFit::count(ZLMomentState state) const
{
    return std::ranges::count_if(
        chapters, [state](const ZLFittedChapter& found) { return found.place.state == state; });
}

ZLChapterSequence ZLFit::fittedChapters() const
{
    ZLChapterSequence fitted;
    for (const ZLFittedChapter& found : chapters) {
        const auto chapter = std::make_shared<ZLChapter>(found.mark.chapter->archivedRepresentation());
        chapter->setTimeStamp(found.newTime());
        chapter->setEnabled(found.isEnabledThere());
        fitted.append(chapter);
    }
    return fitted;
}

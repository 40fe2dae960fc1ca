#include "delivery/fit/ZLFit.h"

#include <algorithm>

ZLFit ZLFit::of(const ZLChapterSequence& chapters, const ZLSoundAlignment& alignment, double zero)
{
    ZLFit fit { {}, alignment };
    const ZLShowMap map(alignment);
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const double time = chapters[index]->timeStamp();
        const double end = index + 1 < chapters.size() ? chapters[index + 1]->timeStamp() : alignment.showLength - zero;
        fit.chapters.append({ chapters[index], time, map.place(time + zero, end + zero) });
    }
    return fit;
}

ZLChapterSequence ZLFit::fittedChapters() const
{
    ZLChapterSequence fitted;
    for (const ZLFittedChapter& found : chapters) {
        const auto chapter = std::make_shared<ZLChapter>(found.chapter->archivedRepresentation());
        if (found.place.state != ZLMomentState::NotFound)
            chapter->setTimeStamp(found.place.fileTime);
        if (!found.isInFile())
            chapter->setEnabled(false);
        fitted.append(chapter);
    }
    return fitted;
}

#include "delivery/fit/ZLFittedChapters.h"

#include "delivery/fit/ZLFit.h"
#include "delivery/fit/ZLKeptFits.h"
#include "document/ZLChapterDocument.h"

#include <QFileInfo>

std::optional<ZLChapterSequence> ZLFittedChapters::forFile(
    ZLChapterDocument& document, const QString& path, const ZLMediaContents& file)
{
    constexpr double millisecondsPerSecond = 1000.0;
    const auto kept =
        ZLKeptFits::ofFile(document.extras(), QFileInfo(path).fileName(), double(file.length) / millisecondsPerSecond);
    if (!kept || kept->identifier == ZLKeptFits::followed(document.extras()))
        return std::nullopt;
    const ZLShowMarks marks = ZLFitNotes::marksOf(document.chapterManager().allChapters(), document.extras());
    ZLChapterManager sorted;
    for (const ZLChapterPointer& chapter : ZLFit::of(marks, kept->alignment, kept->zero).fittedChapters())
        sorted.addChapter(chapter);
    return sorted.allChapters();
}

#include "delivery/ZLDeliveryFindings.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct FindingTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLDeliveryFindings)
};

/// Titles in the list `chpl` of an M4A file.
constexpr qsizetype longestTitle = 255;

int countOf(qsizetype count)
{
    return int(std::min<qsizetype>(count, std::numeric_limits<int>::max()));
}

template <typename Condition>
int removeAll(ZLMediaChapters& chapters, Condition condition)
{
    return countOf(chapters.removeIf(condition));
}

QStringList leaveOutWhatIsOutside(const ZLMediaContents& file, ZLMediaChapters& chapters)
{
    QStringList findings;
    const int early = removeAll(chapters, [](const ZLMediaChapter& chapter) { return chapter.start < 0; });
    if (early > 0)
        findings.append(FindingTexts::tr("Chapters before the start of the file, left out: %1.").arg(early));
    const int late = removeAll(chapters, [&](const ZLMediaChapter& chapter) {
        return chapter.start > file.latestStart || (file.length > 0 && chapter.start >= file.length);
    });
    if (late > 0)
        findings.append(FindingTexts::tr("Chapters behind the end of the file, left out: %1.").arg(late));
    return findings;
}

QStringList leaveOutWhatIsTooMuch(const ZLMediaContents& file, ZLMediaChapters& chapters)
{
    if (chapters.size() <= file.mostChapters)
        return {};
    const int left = countOf(chapters.size() - file.mostChapters);
    chapters.resize(file.mostChapters);
    return { FindingTexts::tr("%1 holds %2 chapters at most. Left out at the end: %3.")
            .arg(file.formName)
            .arg(file.mostChapters)
            .arg(left) };
}

QStringList remarks(const ZLMediaChapters& chapters)
{
    QStringList findings;
    const auto untitled =
        std::ranges::count_if(chapters, [](const ZLMediaChapter& chapter) { return chapter.title.isEmpty(); });
    if (untitled > 0)
        findings.append(FindingTexts::tr("Chapters without a title, written with an empty one: %1.").arg(untitled));
    int equal = 0;
    for (qsizetype index = 1; index < chapters.size(); ++index)
        equal += chapters.at(index).start == chapters.at(index - 1).start ? 1 : 0;
    if (equal > 0)
        findings.append(
            FindingTexts::tr("Chapters at the time of the one before, of which a player may show only one; they "
                             "are written in their order: %1.")
                .arg(equal));
    return findings;
}

QStringList linkRemarks(const ZLMediaContents& file, ZLMediaChapters& chapters)
{
    if (file.links == ZLMediaLinks::Kept)
        return {};
    int links = 0;
    for (ZLMediaChapter& chapter : chapters) {
        links += chapter.link.isEmpty() ? 0 : 1;
        chapter.link.clear();
    }
    if (links == 0)
        return {};
    return { FindingTexts::tr("%1 holds no links. Links left out: %2.").arg(file.formName).arg(links) };
}

QStringList titleRemarks(const ZLMediaContents& file, const ZLMediaChapters& chapters)
{
    const auto isLong = [](const ZLMediaChapter& chapter) { return chapter.title.toUtf8().size() > longestTitle; };
    const int count = file.form == ZLMediaForm::MP4 ? countOf(std::ranges::count_if(chapters, isLong)) : 0;
    if (count == 0)
        return {};
    return { FindingTexts::tr("Titles of more than %1 bytes, of which some players show only the beginning: %2.")
            .arg(longestTitle)
            .arg(count) };
}

int lostPictures(const ZLMediaContents& file, const ZLMediaChapters& chapters)
{
    const bool allStay =
        std::ranges::equal(file.chapters, chapters, {}, &ZLMediaChapter::start, &ZLMediaChapter::start);
    if (file.keepsPicturesTogether)
        return allStay ? 0 : countOf(file.pictures.size());
    return countOf(std::ranges::count_if(file.pictures,
        [&](qint64 start) { return std::ranges::find(chapters, start, &ZLMediaChapter::start) == chapters.end(); }));
}

QStringList pictureRemarks(const ZLMediaContents& file, const ZLMediaChapters& chapters)
{
    const int lost = lostPictures(file, chapters);
    if (lost == 0)
        return {};
    return { FindingTexts::tr(
        "Pictures of chapters in the file that are lost, since no new chapter stands at their time: %1.")
            .arg(lost) };
}

}

QStringList ZLDeliveryFindings::applied(const ZLMediaContents& file, ZLMediaChapters& chapters)
{
    QStringList findings = leaveOutWhatIsOutside(file, chapters);
    findings += leaveOutWhatIsTooMuch(file, chapters);
    findings += linkRemarks(file, chapters);
    findings += remarks(chapters);
    findings += titleRemarks(file, chapters);
    findings += pictureRemarks(file, chapters);
    return findings + file.changes;
}

#include "platform/media/mp4/ZLMP4Format.h"

#include "platform/media/mp4/ZLMP4ChapterList.h"
#include "platform/media/mp4/ZLMP4Rewriter.h"
#include "platform/media/mp4/ZLMP4TextTrack.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// The times of a track are counted in milliseconds with four bytes.
constexpr qint64 latestTrackTime = 0xFFFFFFFE;
constexpr qint64 largestList = 9 + 255 * (9 + 255);

/// The text track where there is one, since the list is shorter.
ZLMediaChapters readChapters(const ZLMediaSource& source, const ZLMP4Movie& movie)
{
    for (const ZLMP4Track& track : movie.chapterTracks()) {
        if (track.hasTexts())
            return ZLMP4TextTrack::read(source, track, movie.timescale);
    }
    const auto list = ZLMP4Atoms::find(source, movie.moov, { "udta", "chpl" });
    return ZLMP4ChapterList::read(ZLMP4Atoms::contents(source, list, largestList), movie.length());
}

/// Pictures are a track of their own, which stays when all chapters stay at their times.
QList<qint64> picturesOf(const ZLMP4Movie& movie, const ZLMediaChapters& chapters)
{
    QList<qint64> starts;
    const bool hasPictures = std::ranges::any_of(movie.chapterTracks(), std::not_fn(&ZLMP4Track::hasTexts));
    for (const ZLMediaChapter& chapter : hasPictures ? chapters : ZLMediaChapters())
        starts.append(chapter.start);
    return starts;
}

}

bool ZLMP4Format::isFormOf(const ZLMediaSource& source) const
{
    return ZLMP4Movie::isMovie(source);
}

ZLResult<ZLMediaContents> ZLMP4Format::read(const ZLMediaSource& source) const
{
    const auto movie = ZLMP4Movie::read(source);
    if (!movie)
        return movie.error();
    const ZLMediaChapters chapters = readChapters(source, movie.value());
    return ZLMediaContents {
        .form = ZLMediaForm::MP4,
        .formName = u"M4A"_s,
        .length = movie.value().length(),
        .chapters = chapters,
        .pictures = picturesOf(movie.value(), chapters),
        .keepsPicturesTogether = true,
        .mostChapters = ZLMP4ChapterList::mostChapters,
        .latestStart = latestTrackTime,
        .links = ZLMediaLinks::NotKept,
    };
}

ZLResult<ZLFilePieces> ZLMP4Format::withChapters(const ZLMediaSource& source, const ZLMediaChapters& chapters) const
{
    const auto movie = ZLMP4Movie::read(source);
    return movie ? ZLMP4Rewriter(source, movie.value(), chapters).pieces() : movie.error();
}

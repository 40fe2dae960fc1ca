#include "platform/media/mp3/ZLMP3Format.h"

#include "platform/media/mp3/ZLID3Chapters.h"
#include "platform/media/mp3/ZLMPEGSound.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct MP3Texts {
    Q_DECLARE_TR_FUNCTIONS(ZLMP3Format)
};

/// The list of chapters counts them with one byte.
constexpr qsizetype mostListed = 255;
/// Times have four bytes, and the largest number says that there is none.
constexpr qint64 latestTime = 0xFFFFFFFE;
constexpr int mostTags = 16;

/// Behind all tags at the beginning; few files have more than one.
qint64 endOfTags(const ZLMediaSource& source)
{
    qint64 end = 0;
    for (int count = 0; count < mostTags; ++count) {
        const qint64 size = ZLID3Tag::sizeAt(source, end);
        if (size == 0)
            break;
        end += size;
    }
    return end;
}

QStringList changesOf(const ZLID3Tag& tag)
{
    QStringList changes;
    if (tag.formerVersion() == 2)
        changes.append(MP3Texts::tr("The ID3v2.2 tag becomes an ID3v2.3 tag, since the old one cannot hold chapters."));
    if (tag.lostFrames() > 0)
        changes.append(
            MP3Texts::tr("Entries of the ID3v2.2 tag that are lost, since an ID3v2.3 tag has no place for them: %1.")
                .arg(tag.lostFrames()));
    return changes;
}

}

bool ZLMP3Format::isFormOf(const ZLMediaSource& source) const
{
    return ZLMPEGSound::firstFrame(source, endOfTags(source)).has_value();
}

ZLResult<ZLMediaContents> ZLMP3Format::read(const ZLMediaSource& source) const
{
    const auto tag = ZLID3Tag::readAt(source, 0);
    if (!tag)
        return tag.error();
    const auto firstFrame = ZLMPEGSound::firstFrame(source, endOfTags(source));
    if (!firstFrame)
        return ZLError { MP3Texts::tr("There is no MP3 sound in this file.") };
    const ZLID3Chapters::Found found = ZLID3Chapters::read(tag.value());
    return ZLMediaContents {
        .form = ZLMediaForm::MP3,
        .formName = u"MP3"_s,
        .length = ZLMPEGSound::length(source, *firstFrame),
        .chapters = found.chapters,
        .pictures = found.pictures,
        .mostChapters = mostListed,
        .latestStart = latestTime,
        .changes = changesOf(tag.value()),
    };
}

ZLResult<ZLFilePieces> ZLMP3Format::withChapters(const ZLMediaSource& source, const ZLMediaChapters& chapters) const
{
    auto tag = ZLID3Tag::readAt(source, 0);
    if (!tag)
        return tag.error();
    ZLID3Tag changed = std::move(tag).value();
    ZLID3Chapters::replace(changed, chapters);
    const auto bytes = changed.bytes();
    if (!bytes)
        return bytes.error();
    ZLFilePieces pieces;
    pieces.append(bytes.value());
    pieces.appendRange(changed.formerSize(), source.size() - changed.formerSize());
    return pieces;
}

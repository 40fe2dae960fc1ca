#include "platform/media/file/ZLMediaFile.h"

#include "platform/ZLAtomicFile.h"
#include "platform/ZLFileError.h"
#include "platform/media/ZLPieceWriter.h"
#include "platform/media/mp3/ZLMP3Format.h"
#include "platform/media/mp4/ZLMP4Format.h"
#include "platform/media/wave/ZLWaveFormat.h"
#include "platform/media/xiph/ZLFLACFormat.h"
#include "platform/media/xiph/ZLOggFormat.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct MediaFileTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLMediaFile)
};

ZLError unknownForm(const QString& path)
{
    return ZLFileError::because(path,
        MediaFileTexts::tr(
            "this is no audio file that Zelta can read: MP3, M4A or MP4, Ogg Vorbis, Opus, FLAC or WAV."));
}

ZLStatus replaceFile(
    const ZLMediaSource& source, const ZLFilePieces& pieces, const QString& output, ZLWorkProgress& progress)
{
    const ZLFileReplacement replacement {
        .fill = [&](int descriptor) { return ZLPieceWriter(source, descriptor, progress).write(pieces); },
        .permit = [&] { return source.checkUnchanged(); },
        .size = pieces.size(),
    };
    return ZLAtomicFile::replace(output, replacement);
}

}

const ZLMediaFormat* ZLMediaFile::formatOf(const ZLMediaSource& source)
{
    // FLAC before MP3: both may have the tag at the beginning that is at home in MP3.
    static const ZLFLACFormat flac;
    static const ZLOggFormat ogg;
    static const ZLWaveFormat wave;
    static const ZLMP4Format mp4;
    static const ZLMP3Format mp3;
    for (const ZLMediaFormat* format : std::array<const ZLMediaFormat*, 5> { &flac, &ogg, &wave, &mp4, &mp3 }) {
        if (format->isFormOf(source))
            return format;
    }
    return nullptr;
}

bool ZLMediaFile::isMediaFile(const QString& path)
{
    const auto source = ZLMediaSource::open(path);
    return source && formatOf(*source.value()) != nullptr;
}

ZLResult<ZLMediaContents> ZLMediaFile::read(const QString& path)
{
    const auto source = ZLMediaSource::open(path);
    if (!source)
        return source.error();
    const ZLMediaFormat* format = formatOf(*source.value());
    if (!format)
        return unknownForm(path);
    const auto contents = format->read(*source.value());
    return contents ? contents : ZLFileError::because(path, contents.error().message);
}

ZLStatus ZLMediaFile::write(
    const QString& path, const ZLMediaChapters& chapters, const QString& output, ZLWorkProgress& progress)
{
    const auto source = ZLMediaSource::open(path);
    if (!source)
        return source.error();
    const ZLMediaFormat* format = formatOf(*source.value());
    if (!format)
        return unknownForm(path);
    const auto pieces = format->withChapters(*source.value(), chapters);
    if (!pieces)
        return ZLFileError::because(path, pieces.error().message);
    return replaceFile(*source.value(), pieces.value(), output, progress);
}

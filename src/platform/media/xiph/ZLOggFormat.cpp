#include "platform/media/xiph/ZLOggFormat.h"

#include "platform/media/ZLBytes.h"
#include "platform/media/xiph/ZLOggPages.h"
#include "platform/media/xiph/ZLVorbisComment.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct OggTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLOggFormat)
};

/// What is different between the two kinds of sound.
struct Codec {
    ZLMediaForm form = ZLMediaForm::Opus;
    QString name {};
    QByteArray firstPacket {};
    /// What the packet with the texts begins with.
    QByteArray commentPacket {};
    int headerPackets = 0;
};

const std::array<Codec, 2>& codecs()
{
    static const std::array<Codec, 2> all {
        Codec { ZLMediaForm::Opus, u"Opus"_s, "OpusHead", "OpusTags", 2 },
        Codec { ZLMediaForm::OggVorbis, u"Ogg Vorbis"_s, "\x01vorbis", "\x03vorbis", 3 },
    };
    return all;
}

const Codec* codecOf(const ZLMediaSource& source)
{
    const auto page = ZLOggPage::at(source, 0);
    const QByteArray packet = page ? source.read(page->headerSize(), 16) : QByteArray();
    for (const Codec& codec : codecs()) {
        if (packet.startsWith(codec.firstPacket))
            return &codec;
    }
    return nullptr;
}

/// The packets at the beginning, and the texts in the second one.
struct Opened {
    const Codec* codec = nullptr;
    ZLOggPages::Headers headers {};
    ZLVorbisComment comment {};
};

ZLResult<Opened> open(const ZLMediaSource& source)
{
    Opened opened { .codec = codecOf(source) };
    const auto headers = ZLOggPages::readHeaders(source, opened.codec->headerPackets);
    if (!headers)
        return headers.error();
    opened.headers = headers.value();
    const QByteArray& packet = opened.headers.packets.at(1);
    if (!packet.startsWith(opened.codec->commentPacket))
        return ZLError { OggTexts::tr("The tags of this file are damaged.") };
    const auto comment = ZLVorbisComment::parse(packet.mid(opened.codec->commentPacket.size()));
    if (!comment)
        return comment.error();
    opened.comment = comment.value();
    return opened;
}

/// Milliseconds; nothing when the file is a chain of several streams.
std::optional<qint64> lengthOf(const ZLMediaSource& source, const Opened& opened)
{
    const auto last = ZLOggPages::lastPosition(source, opened.headers.stream);
    if (!last)
        return std::nullopt;
    const QByteArray& first = opened.headers.packets.first();
    const bool isOpus = opened.codec->form == ZLMediaForm::Opus;
    const double rate = isOpus ? 48000.0 : double(ZLBytes::little<quint32>(first, 12));
    const qint64 skipped = isOpus ? ZLBytes::little<quint16>(first, 10) : 0;
    return rate > 0.0 ? qRound64(double(std::max(*last - skipped, qint64(0))) * 1000.0 / rate) : 0;
}

ZLError chained()
{
    return ZLError { OggTexts::tr("This Ogg file is a chain of several streams, which Zelta does not write to.") };
}

}

bool ZLOggFormat::isFormOf(const ZLMediaSource& source) const
{
    return codecOf(source) != nullptr;
}

ZLResult<ZLMediaContents> ZLOggFormat::read(const ZLMediaSource& source) const
{
    const auto opened = open(source);
    if (!opened)
        return opened.error();
    const auto length = lengthOf(source, opened.value());
    if (!length)
        return chained();
    return ZLMediaContents {
        .form = opened.value().codec->form,
        .formName = opened.value().codec->name,
        .length = *length,
        .chapters = opened.value().comment.chapters(*length),
        .mostChapters = ZLVorbisComment::mostChapters,
    };
}

ZLResult<ZLFilePieces> ZLOggFormat::withChapters(const ZLMediaSource& source, const ZLMediaChapters& chapters) const
{
    const auto opened = open(source);
    if (!opened)
        return opened.error();
    if (!lengthOf(source, opened.value()))
        return chained();
    ZLVorbisComment comment = opened.value().comment;
    comment.replaceChapters(chapters);
    QList<QByteArray> packets = opened.value().headers.packets.sliced(1);
    packets[0] = opened.value().codec->commentPacket + comment.bytes();
    return ZLOggPages::withPackets(source, opened.value().headers, packets);
}

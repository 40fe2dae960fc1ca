#include "platform/media/xiph/ZLFLACFormat.h"

#include "platform/media/ZLBytes.h"
#include "platform/media/ZLPadding.h"
#include "platform/media/mp3/ZLID3Tag.h"
#include "platform/media/xiph/ZLVorbisComment.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct FLACTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLFLACFormat)
};

enum BlockType : uchar { StreamInfo = 0, Padding = 1, Comment = 4 };

constexpr qint64 blockHeader = 4;
constexpr qint64 largestBlock = 0xFFFFFF;
constexpr int mostBlocks = 10'000;

struct Block {
    uchar type = 0;
    /// Where the header stands.
    qint64 offset = 0;
    /// Without the header.
    qint64 size = 0;
};

struct Blocks {
    /// Where the first one stands.
    qint64 begin = 0;
    /// Where the sound begins.
    qint64 end = 0;
    QList<Block> list {};
};

ZLError damaged()
{
    return ZLError { FLACTexts::tr("The description at the beginning of this FLAC file is damaged.") };
}

ZLResult<Blocks> readBlocks(const ZLMediaSource& source)
{
    Blocks blocks { .begin = ZLID3Tag::sizeAt(source, 0) + 4 };
    blocks.end = blocks.begin;
    for (bool isLast = false; !isLast;) {
        const QByteArray header = source.read(blocks.end, blockHeader);
        if (header.size() < blockHeader || blocks.list.size() == mostBlocks)
            return damaged();
        const uchar first = uchar(header.at(0));
        const Block block { uchar(first & 0x7F), blocks.end, qint64(ZLBytes::big<quint32>(header, 0) & 0xFFFFFFU) };
        isLast = first & 0x80;
        blocks.end += blockHeader + block.size;
        blocks.list.append(block);
        if (blocks.end > source.size())
            return damaged();
    }
    return blocks.list.first().type == StreamInfo && blocks.list.first().size >= 34 ? ZLResult(blocks) : damaged();
}

/// Milliseconds; 0 where the encoder did not know.
qint64 lengthOf(const ZLMediaSource& source, const Blocks& blocks)
{
    const QByteArray info = source.read(blocks.list.first().offset + blockHeader, 34);
    const auto packed = ZLBytes::big<quint64>(info, 10);
    const auto rate = qint64(packed >> 44);
    const auto samples = qint64(packed & 0xFFFFFFFFFULL);
    return rate > 0 ? qRound64(double(samples) * 1000.0 / double(rate)) : 0;
}

ZLResult<ZLVorbisComment> readComment(const ZLMediaSource& source, const Blocks& blocks)
{
    const auto block = std::ranges::find(blocks.list, uchar(Comment), &Block::type);
    if (block == blocks.list.end())
        return ZLVorbisComment();
    return ZLVorbisComment::parse(source.read(block->offset + blockHeader, block->size));
}

QByteArray blockBytes(uchar type, qint64 size)
{
    return ZLBytes::fromBig(quint32(type) << 24 | quint32(size));
}

/// All blocks but the padding, each without the mark of the last one.
ZLFilePieces blocksWith(const Blocks& blocks, const QByteArray& comment)
{
    ZLFilePieces pieces;
    const QByteArray commentBlock = blockBytes(Comment, comment.size()) + comment;
    const bool hasComment = std::ranges::count(blocks.list, uchar(Comment), &Block::type) > 0;
    bool isCommentDue = true;
    for (const Block& block : blocks.list) {
        if (block.type != Padding && block.type != Comment) {
            pieces.append(blockBytes(block.type, block.size));
            pieces.appendRange(block.offset + blockHeader, block.size);
        }
        if (isCommentDue && (block.type == Comment || !hasComment)) {
            pieces.append(commentBlock);
            isCommentDue = false;
        }
    }
    return pieces;
}

}

bool ZLFLACFormat::isFormOf(const ZLMediaSource& source) const
{
    return source.read(ZLID3Tag::sizeAt(source, 0), 4) == "fLaC";
}

ZLResult<ZLMediaContents> ZLFLACFormat::read(const ZLMediaSource& source) const
{
    const auto blocks = readBlocks(source);
    if (!blocks)
        return blocks.error();
    const auto comment = readComment(source, blocks.value());
    if (!comment)
        return comment.error();
    const qint64 length = lengthOf(source, blocks.value());
    return ZLMediaContents {
        .form = ZLMediaForm::FLAC,
        .formName = u"FLAC"_s,
        .length = length,
        .chapters = comment.value().chapters(length),
        .mostChapters = ZLVorbisComment::mostChapters,
    };
}

ZLResult<ZLFilePieces> ZLFLACFormat::withChapters(const ZLMediaSource& source, const ZLMediaChapters& chapters) const
{
    const auto blocks = readBlocks(source);
    if (!blocks)
        return blocks.error();
    const auto former = readComment(source, blocks.value());
    if (!former)
        return former.error();
    ZLVorbisComment comment = former.value();
    comment.replaceChapters(chapters);
    if (comment.bytes().size() > largestBlock)
        return ZLError { FLACTexts::tr("The tags would become larger than a FLAC file can hold.") };
    ZLFilePieces pieces;
    pieces.appendRange(0, blocks.value().begin);
    pieces.append(blocksWith(blocks.value(), comment.bytes()));
    const qint64 needed = pieces.size() + blockHeader;
    const qint64 padding = ZLPadding::paddedSize(needed, blocks.value().end) - needed;
    if (padding > largestBlock)
        return damaged();
    pieces.append(blockBytes(0x80 | Padding, padding) + QByteArray(qsizetype(padding), '\0'));
    pieces.appendRange(blocks.value().end, source.size() - blocks.value().end);
    return pieces;
}

#include "platform/media/mp3/ZLID3Chapters.h"

#include "platform/media/ZLBytes.h"
#include "platform/media/mp3/ZLID3Unsynchronisation.h"

#include <QUrl>

#include <taglib/chapterframe.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/id3v2header.h>
#include <taglib/id3v2tag.h>
#include <taglib/tableofcontentsframe.h>
#include <taglib/textidentificationframe.h>
#include <taglib/urllinkframe.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// More chapters than any player lists are not read, so that a hostile tag costs little.
constexpr size_t mostChaptersRead = 10'000;
constexpr qsizetype mostFramesInside = 64;
constexpr qsizetype mostFramesInsideOfAll = 20'000;
constexpr unsigned int noOffset = 0xFFFFFFFF;

using ChapterFrame = std::unique_ptr<TagLib::ID3v2::ChapterFrame>;

TagLib::ByteVector toTagLib(const QByteArray& bytes)
{
    return { bytes.constData(), static_cast<unsigned int>(bytes.size()) };
}

QString fromTagLib(const TagLib::String& text)
{
    return QString::fromStdString(text.to8Bit(true));
}

TagLib::String toTagLib(const QString& text)
{
    return { text.toStdString(), TagLib::String::UTF8 };
}

/// The contents without what the flags of the frame did to them; nothing where they are packed or encrypted.
std::optional<QByteArray> plainContents(const ZLID3Frame& frame, int version)
{
    const uchar flags = uchar(frame.bytes.at(9));
    const QByteArray contents = frame.contents();
    if (version == 3) {
        const bool isReadable = (flags & 0xC0) == 0;
        return isReadable ? std::optional(contents.mid(flags & 0x20 ? 1 : 0)) : std::nullopt;
    }
    if (flags & 0x0C)
        return std::nullopt;
    const QByteArray behindFields = contents.mid((flags & 0x40 ? 1 : 0) + (flags & 0x01 ? 4 : 0));
    return flags & 0x02 ? ZLID3Unsynchronisation::decoded(behindFields) : behindFields;
}

QByteArray plainFrame(const QByteArray& id, const QByteArray& contents, int version)
{
    const QByteArray size =
        version == 3 ? ZLBytes::fromBig(quint32(contents.size())) : ZLID3Tag::synchsafe(contents.size());
    return id + size + QByteArray(2, '\0') + contents;
}

/// The frame with no more inside than a chapter can use. The library unpacks frames and follows chapters inside of
/// chapters without a bound, so it gets neither.
std::optional<QByteArray> harmlessFrame(const ZLID3Frame& frame, int version, qsizetype& framesLeft)
{
    const auto contents = plainContents(frame, version);
    const qsizetype endOfId = contents ? contents->indexOf('\0') : -1;
    const qsizetype endOfTimes = endOfId + 17;
    if (endOfId < 0 || endOfTimes > contents->size())
        return std::nullopt;
    QByteArray harmless = contents->left(endOfTimes);
    qsizetype end = 0;
    const QList<ZLID3Frame> embedded = ZLID3Tag::splitFrames(contents->mid(endOfTimes), version, end);
    const qsizetype count = std::min({ embedded.size(), mostFramesInside, framesLeft });
    framesLeft -= count;
    for (const ZLID3Frame& inner : embedded.first(count)) {
        const auto plain = plainContents(inner, version);
        if (plain && inner.id != "CHAP" && inner.id != "CTOC")
            harmless += plainFrame(inner.id, *plain, version);
    }
    return plainFrame(frame.id, harmless, version);
}

ChapterFrame decoded(const QByteArray& frame, const TagLib::ID3v2::Header& header)
{
    TagLib::ID3v2::Frame* made = TagLib::ID3v2::FrameFactory::instance()->createFrame(toTagLib(frame), &header);
    ChapterFrame chapter(dynamic_cast<TagLib::ID3v2::ChapterFrame*>(made));
    if (!chapter)
        delete made;
    return chapter;
}

std::vector<ChapterFrame> chapterFrames(const ZLID3Tag& tag)
{
    const TagLib::ID3v2::Header header(toTagLib(tag.header(ZLMediaSource::largestReading)));
    std::vector<ChapterFrame> frames;
    qsizetype framesLeft = mostFramesInsideOfAll;
    for (const ZLID3Frame& frame : tag.frames()) {
        if (frame.id != "CHAP" || frames.size() == mostChaptersRead || framesLeft == 0)
            continue;
        const auto harmless = harmlessFrame(frame, tag.version(), framesLeft);
        if (ChapterFrame chapter = harmless ? decoded(*harmless, header) : nullptr)
            frames.push_back(std::move(chapter));
    }
    std::ranges::stable_sort(frames, {}, [](const ChapterFrame& frame) { return frame->startTime(); });
    return frames;
}

QString linkOf(const TagLib::ID3v2::ChapterFrame& frame)
{
    const TagLib::ID3v2::FrameList& links = frame.embeddedFrameList("WXXX");
    const auto* link = links.isEmpty() ? nullptr : dynamic_cast<const TagLib::ID3v2::UrlLinkFrame*>(links.front());
    return link ? fromTagLib(link->url()) : QString();
}

QString titleOf(const TagLib::ID3v2::ChapterFrame& frame)
{
    const TagLib::ID3v2::FrameList& titles = frame.embeddedFrameList("TIT2");
    return titles.isEmpty() ? QString() : fromTagLib(titles.front()->toString());
}

bool isTitleOrLink(const TagLib::ID3v2::Frame& frame)
{
    return frame.frameID() == "TIT2" || frame.frameID() == "WXXX";
}

bool hasMoreThanTitleAndLink(const TagLib::ID3v2::ChapterFrame& frame)
{
    const TagLib::ID3v2::FrameList& frames = frame.embeddedFrameList();
    return std::any_of(frames.begin(), frames.end(), [](const auto* embedded) { return !isTitleOrLink(*embedded); });
}

/// A link in a tag has the letters of a web address only.
TagLib::String asciiLink(const QString& link)
{
    const QUrl address(link);
    const QByteArray encoded =
        address.isValid() ? address.toEncoded() : QUrl::toPercentEncoding(link, ":/?#[]@!$&'()*+,;=%");
    return encoded.toStdString();
}

ChapterFrame newFrame(const ZLMediaChapter& chapter, const TagLib::ByteVector& id)
{
    auto frame = std::make_unique<TagLib::ID3v2::ChapterFrame>(id, static_cast<unsigned int>(chapter.start),
        static_cast<unsigned int>(std::max(chapter.end, chapter.start)), noOffset, noOffset);
    auto title = std::make_unique<TagLib::ID3v2::TextIdentificationFrame>("TIT2", TagLib::String::UTF8);
    title->setText(toTagLib(chapter.title));
    frame->addEmbeddedFrame(title.release());
    if (!chapter.link.isEmpty()) {
        auto link = std::make_unique<TagLib::ID3v2::UserUrlLinkFrame>(TagLib::String::Latin1);
        link->setUrl(asciiLink(chapter.link));
        frame->addEmbeddedFrame(link.release());
    }
    return frame;
}

/// Each former chapter gives what it has to one new chapter.
void takeOverPictures(std::vector<ChapterFrame>& former, TagLib::ID3v2::ChapterFrame& frame)
{
    const auto found = std::ranges::find_if(former, [&](const ChapterFrame& candidate) {
        return candidate && candidate->startTime() == frame.startTime() && hasMoreThanTitleAndLink(*candidate);
    });
    if (found == former.end())
        return;
    const ChapterFrame giver = std::move(*found);
    // A copy of the library's own list would delete the frames together with the list itself.
    const TagLib::ID3v2::FrameList& list = giver->embeddedFrameList();
    const std::vector<TagLib::ID3v2::Frame*> embedded(list.begin(), list.end());
    for (TagLib::ID3v2::Frame* picture : embedded) {
        if (isTitleOrLink(*picture))
            continue;
        giver->removeEmbeddedFrame(picture, false);
        frame.addEmbeddedFrame(picture);
    }
}

}

ZLID3Chapters::Found ZLID3Chapters::read(const ZLID3Tag& tag)
{
    Found found;
    for (const ChapterFrame& frame : chapterFrames(tag)) {
        found.chapters.append(
            { qint64(frame->startTime()), qint64(frame->endTime()), titleOf(*frame), linkOf(*frame) });
        if (hasMoreThanTitleAndLink(*frame))
            found.pictures.append(frame->startTime());
    }
    return found;
}

void ZLID3Chapters::replace(ZLID3Tag& tag, const ZLMediaChapters& chapters)
{
    std::vector<ChapterFrame> former = chapterFrames(tag);
    tag.removeFrames("CHAP");
    tag.removeFrames("CTOC");
    if (chapters.isEmpty())
        return;
    TagLib::ID3v2::Tag frames;
    auto contents = std::make_unique<TagLib::ID3v2::TableOfContentsFrame>("toc");
    contents->setIsTopLevel(true);
    contents->setIsOrdered(true);
    TagLib::ID3v2::TableOfContentsFrame& list = *contents;
    frames.addFrame(contents.release());
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const TagLib::ByteVector id = toTagLib("chp" + QByteArray::number(index));
        ChapterFrame frame = newFrame(chapters.at(index), id);
        takeOverPictures(former, *frame);
        list.addChildElement(id);
        frames.addFrame(frame.release());
    }
    const TagLib::ByteVector bytes = frames.render(tag.version() == 3 ? TagLib::ID3v2::v3 : TagLib::ID3v2::v4);
    qsizetype end = 0;
    const QByteArray behindHeader(bytes.data() + 10, qsizetype(bytes.size()) - 10);
    for (const ZLID3Frame& frame : ZLID3Tag::splitFrames(behindHeader, tag.version(), end))
        tag.append(frame);
}

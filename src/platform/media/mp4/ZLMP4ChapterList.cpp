#include "platform/media/mp4/ZLMP4ChapterList.h"

#include "platform/media/ZLBytes.h"
#include "platform/media/mp4/ZLMP4Texts.h"

#include <algorithm>

namespace {

/// Times have units of 100 nanoseconds.
constexpr qint64 unitsPerMillisecond = 10'000;
constexpr qsizetype longestTitle = 255;

}

ZLMediaChapters ZLMP4ChapterList::read(const QByteArray& contents, qint64 length)
{
    // Version 0 has no reserved bytes in front of the count.
    const bool isOld = !contents.isEmpty() && contents.at(0) == 0;
    qsizetype at = isOld ? 4 : 8;
    const int count = at < contents.size() ? uchar(contents.at(at)) : 0;
    ++at;
    ZLMediaChapters chapters;
    while (chapters.size() < count && at + 9 <= contents.size()) {
        const auto start = qint64(ZLBytes::big<quint64>(contents, at) / unitsPerMillisecond);
        const qsizetype size = uchar(contents.at(at + 8));
        chapters.append({ .start = start, .title = QString::fromUtf8(contents.mid(at + 9, size)) });
        at += 9 + size;
    }
    std::ranges::stable_sort(chapters, {}, &ZLMediaChapter::start);
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const qint64 next = index + 1 < chapters.size() ? chapters.at(index + 1).start : length;
        chapters[index].end = std::max(chapters.at(index).start, next);
    }
    return chapters;
}

QByteArray ZLMP4ChapterList::bytes(const ZLMediaChapters& chapters)
{
    const qsizetype count = std::min(chapters.size(), mostChapters);
    QByteArray bytes = QByteArray("\x01\0\0\0\0\0\0\0", 8) + char(count);
    for (const ZLMediaChapter& chapter : chapters.first(count)) {
        const QByteArray title = ZLMP4Texts::cutUtf8(chapter.title, longestTitle);
        bytes += ZLBytes::fromBig(quint64(chapter.start) * unitsPerMillisecond) + char(title.size()) + title;
    }
    return bytes;
}

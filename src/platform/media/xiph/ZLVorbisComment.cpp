#include "platform/media/xiph/ZLVorbisComment.h"

#include "platform/media/ZLBytes.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct CommentTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLVorbisComment)
};

constexpr quint32 mostFields = 100'000;

/// One of the fields that make a chapter.
struct ChapterField {
    int number = 0;
    /// Empty for the time, else NAME or URL.
    QByteArray part {};
    QByteArray value {};
};

bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

std::optional<ChapterField> chapterField(const QByteArray& field)
{
    constexpr qsizetype endOfNumber = 10;
    const qsizetype equals = field.indexOf('=');
    const QByteArray key = field.left(std::min(equals, qsizetype(32))).toUpper();
    if (equals < endOfNumber || !key.startsWith("CHAPTER")
        || !std::all_of(key.begin() + 7, key.begin() + endOfNumber, isDigit))
        return std::nullopt;
    const QByteArray part = key.mid(endOfNumber);
    if (!part.isEmpty() && part != "NAME" && part != "URL")
        return std::nullopt;
    return ChapterField { key.mid(7, 3).toInt(), part, field.mid(equals + 1) };
}

/// HH:MM:SS with any fraction, in milliseconds.
std::optional<qint64> timeFrom(const QByteArray& text)
{
    static const QRegularExpression form(u"^\\s*(\\d{1,4}):(\\d{1,2}):(\\d{1,2})(?:[.,](\\d{1,9}))?\\s*$"_s);
    const auto match = form.match(QString::fromLatin1(text.left(64)));
    if (!match.hasMatch())
        return std::nullopt;
    const qint64 seconds =
        (match.captured(1).toLongLong() * 60 + match.captured(2).toLongLong()) * 60 + match.captured(3).toLongLong();
    return seconds * 1000 + qRound64((u"0."_s + match.captured(4)).toDouble() * 1000.0);
}

QByteArray timeText(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    return u"%1:%2:%3.%4"_s.arg(seconds / 3600, 2, 10, '0'_L1)
        .arg(seconds / 60 % 60, 2, 10, '0'_L1)
        .arg(seconds % 60, 2, 10, '0'_L1)
        .arg(milliseconds % 1000, 3, 10, '0'_L1)
        .toLatin1();
}

QByteArray withLength(const QByteArray& bytes)
{
    return ZLBytes::fromLittle(quint32(bytes.size())) + bytes;
}

/// The bytes of the given length at `at`, which moves behind them; nothing when there are not so many.
std::optional<QByteArray> takeText(const QByteArray& bytes, qsizetype& at)
{
    const qsizetype size = qsizetype(ZLBytes::little<quint32>(bytes, at));
    if (at + 4 > bytes.size() || size > bytes.size() - at - 4)
        return std::nullopt;
    const qsizetype begin = at + 4;
    at = begin + size;
    return bytes.mid(begin, size);
}

void setEnds(ZLMediaChapters& chapters, qint64 length)
{
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const qint64 next = index + 1 < chapters.size() ? chapters.at(index + 1).start : length;
        chapters[index].end = std::max(chapters.at(index).start, next);
    }
}

}

ZLResult<ZLVorbisComment> ZLVorbisComment::parse(const QByteArray& bytes)
{
    const ZLError damaged { CommentTexts::tr("The tags of this file are damaged.") };
    ZLVorbisComment comment;
    qsizetype at = 0;
    const auto program = takeText(bytes, at);
    if (!program || at + 4 > bytes.size())
        return damaged;
    comment.m_program = *program;
    const auto count = ZLBytes::little<quint32>(bytes, at);
    at += 4;
    if (count > mostFields)
        return damaged;
    for (quint32 index = 0; index < count; ++index) {
        const auto field = takeText(bytes, at);
        if (!field)
            return damaged;
        comment.m_fields.append(*field);
    }
    comment.m_remainder = bytes.mid(at);
    return comment;
}

ZLMediaChapters ZLVorbisComment::chapters(qint64 length) const
{
    struct Parts {
        std::optional<qint64> start {};
        ZLMediaChapter chapter {};
    };
    std::map<int, Parts> parts;
    for (const QByteArray& field : m_fields) {
        const auto found = chapterField(field);
        if (!found)
            continue;
        Parts& chapter = parts[found->number];
        if (found->part.isEmpty())
            chapter.start = timeFrom(found->value);
        else
            (found->part == "NAME" ? chapter.chapter.title : chapter.chapter.link) = QString::fromUtf8(found->value);
    }
    ZLMediaChapters chapters;
    for (auto& [number, chapter] : parts) {
        if (!chapter.start)
            continue;
        chapter.chapter.start = *chapter.start;
        chapters.append(chapter.chapter);
    }
    std::ranges::stable_sort(chapters, {}, &ZLMediaChapter::start);
    setEnds(chapters, length);
    return chapters;
}

void ZLVorbisComment::replaceChapters(const ZLMediaChapters& chapters)
{
    m_fields.removeIf([](const QByteArray& field) { return chapterField(field).has_value(); });
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const ZLMediaChapter& chapter = chapters.at(index);
        const QByteArray key = "CHAPTER" + QByteArray::number(index).rightJustified(3, '0');
        m_fields.append(key + '=' + timeText(chapter.start));
        m_fields.append(key + "NAME=" + chapter.title.toUtf8());
        if (!chapter.link.isEmpty())
            m_fields.append(key + "URL=" + chapter.link.toUtf8());
    }
}

QByteArray ZLVorbisComment::bytes() const
{
    QByteArray bytes = withLength(m_program) + ZLBytes::fromLittle(quint32(m_fields.size()));
    for (const QByteArray& field : m_fields)
        bytes += withLength(field);
    return bytes + m_remainder;
}

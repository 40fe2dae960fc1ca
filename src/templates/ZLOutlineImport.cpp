#include "templates/ZLOutlineImport.h"

#include <QStringTokenizer>

#include <algorithm>

namespace {

constexpr QStringView HeadingMark = u"- ";

/// Digits of an entry's number at most; a longer one is more likely a year.
constexpr qsizetype LongestNumber = 3;

/// How many characters stand before the dot of the top-level domain, at least and at most.
constexpr qsizetype ShortestHost = 2;
constexpr qsizetype LongestHost = 256;

constexpr qsizetype ShortestTopLevelDomain = 2;
constexpr qsizetype LongestTopLevelDomain = 4;

/// A Latin letter without accents. The long s and the Kelvin sign belong to them, as they are an s and a k in lower
/// case.
bool isLinkLetter(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') || code == u'\u017f' || code == u'\u212a';
}

bool isLinkCharacter(QChar character)
{
    const char16_t code = character.unicode();
    return isLinkLetter(character) || (code >= u'0' && code <= u'9')
        || QStringView(u"-@:%_+.~#?&/=").contains(character);
}

/// Whether a word that ends before `position` goes on there.
bool wordContinuesAt(QStringView text, qsizetype position)
{
    if (position >= text.size())
        return false;
    char32_t code = text.at(position).unicode();
    if (QChar::isHighSurrogate(code) && position + 1 < text.size() && text.at(position + 1).isLowSurrogate())
        code = QChar::surrogateToUcs4(text.at(position), text.at(position + 1));
    switch (QChar::category(code)) {
    case QChar::Number_DecimalDigit:
    case QChar::Number_Letter:
    case QChar::Punctuation_Connector:
    case QChar::Other_Format:
        return true;
    default:
        return QChar::isLetter(code) || QChar::isMark(code);
    }
}

/// Where the top-level domain ends that begins after the dot at `dot`, or nothing if none stands there.
std::optional<qsizetype> endOfTopLevelDomain(QStringView text, qsizetype dot)
{
    const qsizetype begin = dot + 1;
    qsizetype end = begin;
    while (end < text.size() && end - begin < LongestTopLevelDomain && isLinkLetter(text.at(end)))
        ++end;
    if (end - begin < ShortestTopLevelDomain || wordContinuesAt(text, end))
        return std::nullopt;
    return end;
}

/// What stands behind the mark of a list's entry; nothing for a line without one.
std::optional<QStringView> topicBehindMark(QStringView line)
{
    const QStringView entry = line.trimmed();
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    const qsizetype digits = std::find_if_not(entry.cbegin(), entry.cend(), isDigit) - entry.cbegin();
    const QStringView marks = digits > 0 ? QStringView(u".)") : QStringView(u"*•‣◦–—+-");
    const qsizetype length = digits + 1;
    if (digits > LongestNumber || length >= entry.size() || !marks.contains(entry.at(digits))
        || !entry.at(length).isSpace())
        return std::nullopt;
    return entry.sliced(length).trimmed();
}

bool hasMarkedLine(QStringView plainText)
{
    for (const QStringView line : qTokenize(plainText, u'\n')) {
        if (topicBehindMark(line))
            return true;
    }
    return false;
}

/// A link alone belongs to the line before.
std::optional<QStringView> topicOfPlainLine(QStringView line)
{
    const QStringView topic = line.trimmed();
    if (topic.isEmpty() || ZLOutlineImport::linkInString(topic) == topic)
        return std::nullopt;
    return topic;
}

/// One chapter for each line in which `titleIn` finds a title. The first link from there on is its own.
template <typename TitleIn>
ZLChapterSequence chaptersIn(QStringView plainText, TitleIn titleIn)
{
    ZLChapterSequence chapters;
    for (const QStringView line : qTokenize(plainText, u'\n')) {
        if (const std::optional<QStringView> title = titleIn(line)) {
            chapters.append(std::make_shared<ZLChapter>());
            chapters.last()->setTitle(title->toString());
        }
        if (chapters.isEmpty() || !chapters.last()->link().isEmpty())
            continue;
        if (const auto link = ZLOutlineImport::linkInString(line))
            chapters.last()->setLink(*link);
    }
    return chapters;
}

/// The link in `run`, which consists of link characters only, all of them that stand together in `text` from `begin`.
/// The leftmost host wins, and of its top-level domains the last one within reach.
std::optional<QStringView> linkInRun(QStringView text, qsizetype begin, qsizetype end)
{
    std::optional<qsizetype> hostBegin;
    qsizetype linkEnd = end;
    for (qsizetype dot = begin + ShortestHost; dot < end; ++dot) {
        if (hostBegin && dot > *hostBegin + LongestHost)
            break;
        if (text.at(dot) != u'.')
            continue;
        const auto domainEnd = endOfTopLevelDomain(text, dot);
        if (!domainEnd)
            continue;
        if (!hostBegin)
            hostBegin = std::max(begin, dot - LongestHost);
        const bool hasPath = *domainEnd < end && text.at(*domainEnd) == u'/';
        linkEnd = hasPath ? end : *domainEnd;
    }
    if (!hostBegin)
        return std::nullopt;
    return text.sliced(*hostBegin, linkEnd - *hostBegin);
}

}

std::optional<QString> ZLOutlineImport::linkInString(QStringView text)
{
    const auto first = text.cbegin();
    for (auto begin = first; begin != text.cend();) {
        begin = std::find_if(begin, text.cend(), isLinkCharacter);
        const auto end = std::find_if_not(begin, text.cend(), isLinkCharacter);
        if (const auto link = linkInRun(text, begin - first, end - first))
            return link->toString();
        begin = end;
    }
    return std::nullopt;
}

ZLChapterSequence ZLOutlineImport::chaptersInText(QStringView plainText)
{
    return chaptersIn(plainText, [](QStringView line) -> std::optional<QStringView> {
        const bool isHeading = line.size() > HeadingMark.size() && line.startsWith(HeadingMark);
        return isHeading ? std::optional(line.sliced(HeadingMark.size())) : std::nullopt;
    });
}

ZLChapterSequence ZLOutlineImport::chaptersInTopicLines(QStringView plainText)
{
    return chaptersIn(plainText, hasMarkedLine(plainText) ? topicBehindMark : topicOfPlainLine);
}

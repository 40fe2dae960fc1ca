#include "templates/ZLOutlineImport.h"

#include <QStringTokenizer>

#include <algorithm>

namespace {

constexpr QStringView HeadingMark = u"- ";

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
    ZLChapterSequence chapters;
    for (const QStringView line : qTokenize(plainText, u'\n')) {
        if (line.size() > HeadingMark.size() && line.startsWith(HeadingMark)) {
            chapters.append(std::make_shared<ZLChapter>());
            chapters.last()->setTitle(line.sliced(HeadingMark.size()).toString());
        }
        if (chapters.isEmpty() || !chapters.last()->link().isEmpty())
            continue;
        if (const auto link = linkInString(line))
            chapters.last()->setLink(*link);
    }
    return chapters;
}

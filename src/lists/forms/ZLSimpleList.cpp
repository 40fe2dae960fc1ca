#include "lists/forms/ZLSimpleList.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// No time that a person writes is longer.
constexpr qsizetype longestTime = 20;

bool isOfTime(QChar character)
{
    return (character >= u'0' && character <= u'9') || character == u':' || character == u'.' || character == u',';
}

bool isSeparator(QChar character)
{
    return character.isSpace() || u"-–—|:.•)]"_s.contains(character);
}

/// Marks before the time of a line: bullets and opening brackets.
QStringView withoutMarks(QStringView text)
{
    while (!text.isEmpty() && (text.front().isSpace() || u"-–—*•([|"_s.contains(text.front())))
        text = text.sliced(1);
    return text;
}

/// Takes a time off the beginning of `text`, with the separators behind it.
std::optional<double> takeLeadingTime(QStringView& text)
{
    const QStringView unmarked = withoutMarks(text);
    qsizetype length = 0;
    while (length < std::min(unmarked.size(), longestTime) && isOfTime(unmarked.at(length)))
        ++length;
    while (length > 0 && u":.,"_s.contains(unmarked.at(length - 1)))
        --length;
    const auto time = ZLListTime::fromClock(unmarked.first(length));
    if (!time || (length < unmarked.size() && unmarked.at(length).isLetterOrNumber()))
        return std::nullopt;
    text = unmarked.sliced(length);
    while (!text.isEmpty() && isSeparator(text.front()))
        text = text.sliced(1);
    return time;
}

/// The same at the end.
std::optional<double> takeTrailingTime(QStringView& text)
{
    QStringView unmarked = text.trimmed();
    while (!unmarked.isEmpty() && u")]."_s.contains(unmarked.back()))
        unmarked.chop(1);
    qsizetype begin = unmarked.size();
    while (begin > std::max<qsizetype>(0, unmarked.size() - longestTime) && isOfTime(unmarked.at(begin - 1)))
        --begin;
    const auto time = ZLListTime::fromClock(unmarked.sliced(begin));
    if (!time || (begin > 0 && unmarked.at(begin - 1).isLetterOrNumber()))
        return std::nullopt;
    text = unmarked.first(begin);
    while (!text.isEmpty() && (isSeparator(text.back()) || text.back() == u'(' || text.back() == u'['))
        text.chop(1);
    return time;
}

/// A link at the end, in angle brackets or as a word of its own.
QString takeLink(QStringView& title)
{
    title = title.trimmed();
    if (const QString link = ZLListText::takeBracketedLink(title); !link.isEmpty())
        return link;
    const qsizetype word = title.lastIndexOf(u' ') + 1;
    const QStringView last = title.sliced(word);
    if (word == 0 || !(last.startsWith("https://"_L1) || last.startsWith("http://"_L1)))
        return {};
    title = title.first(word).trimmed();
    while (!title.isEmpty() && isSeparator(title.back()))
        title.chop(1);
    return last.toString();
}

std::optional<ZLListedChapter> chapterIn(QStringView line)
{
    QStringView title = line;
    auto start = takeLeadingTime(title);
    // "00:00 - 01:30 Title": the second time is the end.
    if (start)
        static_cast<void>(takeLeadingTime(title));
    else
        start = takeTrailingTime(title);
    if (!start)
        return std::nullopt;
    const QString link = takeLink(title);
    return ZLListedChapter { *start, title.trimmed().toString(), link };
}

bool recognises(const ZLListSource& source)
{
    if (source.json() || !source.xmlRootName().isEmpty())
        return false;
    const auto& lines = source.lines();
    return std::any_of(lines.cbegin(), lines.cend(), [](QStringView line) { return chapterIn(line).has_value(); });
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    return QList { ZLListText::chaptersInLines(source, chapterIn) };
}

}

ZLListForm ZLSimpleList::form()
{
    return { .name = "Simple List"_L1,
        .fileType = "txt"_L1,
        .unitsPerSecond = 1000.0,
        .limits = ZLListLimit::LineBreaks | ZLListLimit::AngleBrackets,
        .recognises = recognises,
        .read = read,
        .write = nullptr };
}

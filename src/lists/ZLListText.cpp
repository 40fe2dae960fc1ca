#include "lists/ZLListText.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct TextTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLListText)
};

bool isLineBreak(QChar character)
{
    return character == u'\n' || character == u'\r';
}

/// Also what no XML document may hold.
bool isControl(QChar character)
{
    const char16_t code = character.unicode();
    return (code < 0x20 && code != u'\t' && !isLineBreak(character)) || (code >= 0x7F && code < 0xA0) || code == 0xFFFE
        || code == 0xFFFF;
}

bool isBeyondLimit(QChar character, ZLListLimit limit)
{
    switch (limit) {
    case ZLListLimit::LineBreaks:
        return isLineBreak(character);
    case ZLListLimit::ControlCharacters:
        return isControl(character);
    case ZLListLimit::AngleBrackets:
        return character == u'<' || character == u'>';
    case ZLListLimit::DoubleQuotes:
        return character == u'"';
    case ZLListLimit::Links:
    case ZLListLimit::NinetyNineChapters:
        break;
    }
    return false;
}

/// Half a character, which no encoding can write, gives way to the character that stands for unknown ones.
void replaceHalves(QString& text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if (text.at(i).isSurrogate())
            text[i] = QChar::ReplacementCharacter;
    }
}

/// As much of a line as tells a person which one it is.
QString beginningOf(QStringView line)
{
    constexpr qsizetype mostShown = 60;
    const QStringView trimmed = line.trimmed();
    QString beginning = trimmed.first(std::min(trimmed.size(), mostShown)).toString();
    if (!beginning.isEmpty() && beginning.back().isHighSurrogate())
        beginning.chop(1);
    if (beginning.size() < trimmed.size())
        beginning += u'…';
    return ZLListText::fitting(beginning, ZLListLimit::LineBreaks | ZLListLimit::ControlCharacters);
}

}

QString ZLListText::fitting(const QString& text, ZLListLimits limits)
{
    QString fitting = text;
    replaceHalves(fitting);
    for (QChar& character : fitting) {
        for (const ZLListLimit limit : { ZLListLimit::LineBreaks, ZLListLimit::ControlCharacters }) {
            if (limits.testFlag(limit) && isBeyondLimit(character, limit))
                character = u' ';
        }
        if (limits.testFlag(ZLListLimit::DoubleQuotes) && character == u'"')
            character = u'\'';
    }
    return fitting;
}

bool ZLListText::isBeyond(const QString& text, ZLListLimit limit)
{
    return std::any_of(
        text.cbegin(), text.cend(), [limit](QChar character) { return isBeyondLimit(character, limit); });
}

QString ZLListText::takeBracketedLink(QStringView& title)
{
    if (!title.endsWith(u'>'))
        return {};
    const qsizetype bracket = title.lastIndexOf(u" <");
    if (bracket < 0)
        return {};
    const QStringView link = title.sliced(bracket + 2);
    title = title.first(bracket);
    return link.chopped(1).toString();
}

ZLListRemark ZLListText::remark(qsizetype lineIndex, const QString& text)
{
    return { lineIndex + 1, text };
}

void ZLListText::noteUnknownLine(ZLChapterList& list, qsizetype lineIndex, QStringView line)
{
    if (list.remarks.size() > MostRemarks)
        return;
    if (list.remarks.size() == MostRemarks)
        list.remarks.append(remark(lineIndex, TextTexts::tr("Further lines were not understood.")));
    else if (line.isEmpty())
        list.remarks.append(remark(lineIndex, TextTexts::tr("This line was not understood.")));
    else
        list.remarks.append(remark(lineIndex, TextTexts::tr("“%1” was not understood.").arg(beginningOf(line))));
}

ZLChapterList ZLListText::chaptersInLines(
    const ZLListSource& source, const std::function<std::optional<ZLListedChapter>(QStringView line)>& chapterIn)
{
    ZLChapterList list;
    for (qsizetype i = 0; i < source.lines().size(); ++i) {
        const QStringView line = source.lines().at(i);
        if (const auto chapter = chapterIn(line))
            list.chapters.append(*chapter);
        else if (!line.trimmed().isEmpty())
            noteUnknownLine(list, i, line);
    }
    return list;
}

#include "lists/forms/ZLWebVTTChapters.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto signature = "WEBVTT"_L1;
constexpr auto arrow = "-->"_L1;

/// What stands between blank lines, with the index of its first line.
struct Block {
    qsizetype firstLine = 0;
    QList<QStringView> lines {};
};

QList<Block> blocksOf(const QList<QStringView>& lines)
{
    QList<Block> blocks { Block {} };
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines.at(i).isEmpty())
            blocks.append(Block { i + 1 });
        else
            blocks.last().lines.append(lines.at(i));
    }
    blocks.removeIf([](const Block& block) { return block.lines.isEmpty(); });
    return blocks;
}

/// The text without its tags, with its references resolved.
QString plainText(QStringView payload)
{
    QString text;
    bool isInTag = false;
    for (const QChar character : payload) {
        if (character == u'<')
            isInTag = true;
        if (!isInTag)
            text += character;
        if (character == u'>')
            isInTag = false;
    }
    // The ampersand comes last, so that what it brings forth is not resolved again.
    return text.replace("&lt;"_L1, "<"_L1)
        .replace("&gt;"_L1, ">"_L1)
        .replace("&nbsp;"_L1, "\u00A0"_L1)
        .replace("&amp;"_L1, "&"_L1);
}

std::optional<double> startOf(QStringView timing)
{
    return ZLListTime::fromClock(timing.first(timing.indexOf(arrow)).trimmed());
}

void takeCue(ZLChapterList& list, const Block& block)
{
    const auto timing =
        std::ranges::find_if(block.lines, [](QStringView line) { return line.contains(arrow); }) - block.lines.begin();
    if (timing == block.lines.size())
        return;
    const auto start = startOf(block.lines.at(timing));
    if (!start) {
        ZLListText::noteUnknownLine(list, block.firstLine + timing, block.lines.at(timing));
        return;
    }
    QStringList title;
    for (const QStringView line : block.lines.sliced(timing + 1))
        title.append(plainText(line));
    list.chapters.append({ *start, title.join(u' ') });
}

bool recognises(const ZLListSource& source)
{
    const QStringView line = source.firstFullLine();
    return line == signature || line.startsWith("WEBVTT "_L1) || line.startsWith("WEBVTT\t"_L1);
}

bool isComment(const Block& block)
{
    const QStringView line = block.lines.constFirst();
    return line.startsWith("NOTE"_L1) || line.startsWith("STYLE"_L1) || line.startsWith("REGION"_L1);
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    ZLChapterList list;
    const QList<Block> blocks = blocksOf(source.lines());
    for (const Block& block : blocks.sliced(1)) {
        if (!isComment(block))
            takeCue(list, block);
    }
    return QList { list };
}

QString escaped(const QString& text)
{
    return QString(text).replace(u'&', "&amp;"_L1).replace(u'<', "&lt;"_L1).replace(u'>', "&gt;"_L1);
}

QByteArray write(const ZLListToWrite& list)
{
    // A cue must end behind its start.
    constexpr double shortest = 0.001;
    constexpr double lengthOfUnknown = 1.0;
    QString text = signature + u'\n';
    for (qsizetype i = 0; i < list.chapters.size(); ++i) {
        const double start = list.chapters.at(i).start;
        const bool isLast = i + 1 == list.chapters.size();
        const double end = isLast ? list.end.value_or(start + lengthOfUnknown) : list.chapters.at(i + 1).start;
        text += u'\n' + QString::number(i + 1) + u'\n' + ZLListTime::clock(start) + " --> "_L1
            + ZLListTime::clock(std::max(end, start + shortest)) + u'\n' + escaped(list.chapters.at(i).title) + u'\n';
    }
    return text.toUtf8();
}

}

ZLListForm ZLWebVTTChapters::form()
{
    return { .name = "WebVTT Chapters"_L1,
        .fileType = "vtt"_L1,
        .unitsPerSecond = 1000.0,
        .limits = ZLListLimit::Links | ZLListLimit::LineBreaks | ZLListLimit::ControlCharacters,
        .recognises = recognises,
        .read = read,
        .write = write,
        .isUnmistakable = true };
}

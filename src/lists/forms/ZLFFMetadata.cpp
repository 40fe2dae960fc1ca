#include "lists/forms/ZLFFMetadata.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr auto signature = ";FFMETADATA"_L1;

struct MetadataTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLFFMetadata)
};

/// One line with its escapes resolved. A backslash stands before "=", ";", "#", another one and a line break.
struct MetadataLine {
    qsizetype index;
    QString key;
    QString value;
    bool hasValue = false;
};

/// Reads the lines one after the other; an escaped line break joins two of them.
class MetadataLines {
public:
    explicit MetadataLines(const QList<QStringView>& lines)
        : m_lines(lines)
    {
    }

    [[nodiscard]] bool atEnd() const { return m_next >= m_lines.size(); }

    MetadataLine next()
    {
        MetadataLine line { m_next, {}, {} };
        while (!atEnd() && isContinued(line, m_lines.at(m_next++)))
            (line.hasValue ? line.value : line.key) += u'\n';
        return line;
    }

private:
    static bool isContinued(MetadataLine& line, QStringView text)
    {
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text.at(i) == u'=' && !line.hasValue) {
                line.hasValue = true;
                continue;
            }
            if (text.at(i) == u'\\') {
                ++i;
                if (i == text.size())
                    return true;
            }
            (line.hasValue ? line.value : line.key) += text.at(i);
        }
        return false;
    }

    const QList<QStringView>& m_lines;
    qsizetype m_next = 0;
};

struct MetadataChapter {
    qsizetype line = -1;
    double secondsPerUnit = 1e-9;
    std::optional<double> start {};
    QString title {};
};

/// "1/1000" as a number of seconds.
std::optional<double> timeBase(const QString& text)
{
    const auto numerator = ZLListTime::fromNumber(text.section(u'/', 0, 0).trimmed());
    const auto denominator = ZLListTime::fromNumber(text.section(u'/', 1, 1).trimmed());
    if (!numerator || !denominator || *numerator <= 0.0 || *denominator <= 0.0)
        return std::nullopt;
    return *numerator / *denominator;
}

/// Says whether the line was understood.
bool take(MetadataChapter& chapter, const MetadataLine& line)
{
    if (line.key.compare("TIMEBASE"_L1, Qt::CaseInsensitive) == 0) {
        const auto base = timeBase(line.value);
        chapter.secondsPerUnit = base.value_or(chapter.secondsPerUnit);
        return base.has_value();
    }
    if (line.key.compare("START"_L1, Qt::CaseInsensitive) == 0) {
        chapter.start = ZLListTime::fromNumber(line.value.trimmed());
        return chapter.start.has_value();
    }
    if (line.key.compare("title"_L1, Qt::CaseInsensitive) == 0)
        chapter.title = line.value;
    return true;
}

void append(ZLChapterList& list, const MetadataChapter& chapter)
{
    if (chapter.line < 0)
        return;
    if (chapter.start)
        list.chapters.append({ *chapter.start * chapter.secondsPerUnit, chapter.title });
    else
        list.remarks.append(
            ZLListText::remark(chapter.line, MetadataTexts::tr("This chapter has no time and was left out.")));
}

bool recognises(const ZLListSource& source)
{
    return source.firstFullLine().startsWith(signature);
}

bool isComment(const MetadataLine& line)
{
    return line.key.startsWith(u';') || line.key.startsWith(u'#');
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    ZLChapterList list;
    MetadataChapter chapter;
    bool isInOtherSection = false;
    for (MetadataLines lines(source.lines()); !lines.atEnd();) {
        const MetadataLine line = lines.next();
        if (line.key.startsWith(u'[') && !line.hasValue) {
            append(list, std::exchange(chapter, {}));
            isInOtherSection = line.key.compare("[CHAPTER]"_L1, Qt::CaseInsensitive) != 0;
            if (!isInOtherSection)
                chapter.line = line.index;
        } else if (isInOtherSection || isComment(line) || line.key.trimmed().isEmpty()) {
            continue;
        } else if (chapter.line < 0 && line.key.compare("title"_L1, Qt::CaseInsensitive) == 0) {
            list.name = line.value;
        } else if (!line.hasValue || !take(chapter, line)) {
            ZLListText::noteUnknownLine(list, line.index, source.lines().at(line.index));
        }
    }
    append(list, chapter);
    return QList { list };
}

QString escaped(const QString& text)
{
    QString escaped;
    for (const QChar character : text) {
        if (u"=;#\\\n"_s.contains(character))
            escaped += u'\\';
        escaped += character;
    }
    return escaped;
}

QByteArray write(const ZLListToWrite& list)
{
    constexpr double perSecond = 1000.0;
    QString text = signature + "1\n"_L1;
    for (qsizetype i = 0; i < list.chapters.size(); ++i) {
        const quint64 start = ZLListTime::units(list.chapters.at(i).start, perSecond);
        const bool isLast = i + 1 == list.chapters.size();
        const quint64 end =
            ZLListTime::units(isLast ? list.end.value_or(0.0) : list.chapters.at(i + 1).start, perSecond);
        text += "\n[CHAPTER]\nTIMEBASE=1/1000\nSTART="_L1 + QString::number(start) + "\nEND="_L1
            + QString::number(std::max(start, end)) + "\ntitle="_L1 + escaped(list.chapters.at(i).title) + u'\n';
    }
    return text.toUtf8();
}

}

ZLListForm ZLFFMetadata::form()
{
    return { .name = "ffmetadata"_L1,
        .fileType = "txt"_L1,
        .unitsPerSecond = 1000.0,
        .limits = ZLListLimit::Links | ZLListLimit::LineBreaks | ZLListLimit::ControlCharacters,
        .recognises = recognises,
        .read = read,
        .write = write,
        .isUnmistakable = true };
}

#include "lists/forms/ZLCueSheet.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr double framesPerSecond = 75.0;

struct CueTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLCueSheet)
};

/// A line as its first word and the rest.
struct CueLine {
    QString command;
    QString rest;
};

CueLine cueLine(QStringView line)
{
    const QString text = line.trimmed().toString();
    return { text.section(u' ', 0, 0).toUpper(), text.section(u' ', 1).trimmed() };
}

/// What stands in double quotes, or the whole text where there are none.
QString unquoted(const QString& text)
{
    const qsizetype end = text.lastIndexOf(u'"');
    return text.startsWith(u'"') && end > 0 ? text.sliced(1, end - 1) : text;
}

/// "62:03:37": minutes, seconds and frames.
std::optional<double> frameTime(const QString& text)
{
    const QStringList fields = text.split(u':');
    if (fields.size() != 3)
        return std::nullopt;
    const auto minutesAndSeconds = ZLListTime::fromClock(QString(fields.at(0) + u':' + fields.at(1)));
    const auto frames = ZLListTime::fromNumber(fields.at(2));
    if (!minutesAndSeconds || !frames || *frames < 0.0 || *frames >= framesPerSecond)
        return std::nullopt;
    return *minutesAndSeconds + *frames / framesPerSecond;
}

bool recognises(const ZLListSource& source)
{
    for (const QStringView line : source.lines()) {
        const QStringView text = line.trimmed();
        if (text.startsWith("TRACK "_L1, Qt::CaseInsensitive) && text.endsWith("AUDIO"_L1, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

struct CueTrack {
    qsizetype line = 0;
    std::optional<double> start {};
    QString title {};
};

class SheetReader {
public:
    ZLChapterList read(const QList<QStringView>& lines)
    {
        for (qsizetype i = 0; i < lines.size(); ++i)
            take(cueLine(lines.at(i)), i);
        appendTrack();
        if (m_fileCount > 1)
            m_list.remarks.append({ 0,
                CueTexts::tr("The sheet speaks of %1 files, and the times of each begin at 0.").arg(m_fileCount) });
        return m_list;
    }

private:
    void take(const CueLine& line, qsizetype index)
    {
        if (line.command == "FILE"_L1) {
            ++m_fileCount;
        } else if (line.command == "TRACK"_L1) {
            appendTrack();
            m_track = CueTrack { index };
        } else if (line.command == "TITLE"_L1) {
            (m_track ? m_track->title : m_list.name) = unquoted(line.rest);
        } else if (line.command == "INDEX"_L1 && line.rest.section(u' ', 0, 0).toInt() == 1 && m_track) {
            m_track->start = frameTime(line.rest.section(u' ', 1).trimmed());
        }
    }

    void appendTrack()
    {
        if (!m_track)
            return;
        if (m_track->start)
            m_list.chapters.append({ *m_track->start, m_track->title });
        else
            m_list.remarks.append(
                ZLListText::remark(m_track->line, CueTexts::tr("This track has no time and was left out.")));
    }

    ZLChapterList m_list;
    std::optional<CueTrack> m_track;
    int m_fileCount = 0;
};

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    return QList { SheetReader().read(source.lines()) };
}

QString frameClock(double seconds)
{
    const quint64 frames = ZLListTime::units(seconds, framesPerSecond);
    const quint64 wholeSeconds = frames / quint64(framesPerSecond);
    return u"%1:%2:%3"_s.arg(wholeSeconds / 60, 2, 10, '0'_L1)
        .arg(wholeSeconds % 60, 2, 10, '0'_L1)
        .arg(frames % quint64(framesPerSecond), 2, 10, '0'_L1);
}

QByteArray write(const ZLListToWrite& list)
{
    QString text = "TITLE \""_L1 + list.fileBaseName + "\"\nFILE \""_L1 + list.fileBaseName + ".wav\" WAVE\n"_L1;
    for (qsizetype i = 0; i < list.chapters.size(); ++i) {
        const ZLListedChapter& chapter = list.chapters.at(i);
        text += u"  TRACK %1 AUDIO\n"_s.arg(i + 1, 2, 10, '0'_L1);
        text += "    TITLE \""_L1 + chapter.title + "\"\n    INDEX 01 "_L1 + frameClock(chapter.start) + u'\n';
    }
    return text.toUtf8();
}

}

ZLListForm ZLCueSheet::form()
{
    return { .name = "CUE Sheet"_L1,
        .fileType = "cue"_L1,
        .unitsPerSecond = framesPerSecond,
        .limits = ZLListLimit::Links | ZLListLimit::LineBreaks | ZLListLimit::ControlCharacters
            | ZLListLimit::DoubleQuotes | ZLListLimit::NinetyNineChapters,
        .recognises = recognises,
        .read = read,
        .write = write,
        .isUnmistakable = true };
}

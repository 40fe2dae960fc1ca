#include "lists/forms/ZLMatroskaChapters.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"
#include "lists/forms/ZLXmlChapters.h"

#include <QCoreApplication>
#include <QXmlStreamWriter>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct MatroskaTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLMatroskaChapters)
};

/// Reads the editions of one document. Chapters inside of chapters follow the one that holds them.
class EditionsReader {
public:
    explicit EditionsReader(const QString& text)
        : m_reader(text)
    {
    }

    ZLResult<QList<ZLChapterList>> read()
    {
        for (auto tag = ZLXmlChapters::nextTag(m_reader); !m_reader.atEnd(); tag = ZLXmlChapters::nextTag(m_reader)) {
            if (tag == QXmlStreamReader::StartElement)
                enter();
            else if (m_reader.name() == "ChapterAtom"_L1)
                m_open.removeLast();
        }
        if (m_reader.hasError())
            return ZLXmlChapters::error(m_reader);
        for (ZLChapterList& edition : m_editions)
            leaveOutUntimed(edition);
        return std::move(m_editions);
    }

private:
    void enter()
    {
        const QStringView name = m_reader.name();
        if (name == "EditionEntry"_L1)
            openEdition();
        else if (name == "ChapterAtom"_L1)
            openChapter();
        else if (name == "ChapterDisplay"_L1)
            m_isNamed = false;
        else if (!m_open.isEmpty())
            fill(name.toString());
    }

    /// One inside of a chapter is none.
    void openEdition()
    {
        if (m_open.isEmpty())
            m_editions.append(ZLChapterList {});
    }

    void openChapter()
    {
        if (m_editions.isEmpty())
            m_editions.append(ZLChapterList {});
        m_open.append(m_editions.last().chapters.size());
        m_editions.last().chapters.append(ZLListedChapter { .start = -1.0 });
    }

    void fill(const QString& name)
    {
        ZLListedChapter& chapter = m_editions.last().chapters[m_open.constLast()];
        if (name == "ChapterTimeStart"_L1)
            chapter.start = ZLListTime::fromClock(ZLXmlChapters::textOfElement(m_reader).trimmed()).value_or(-1.0);
        else if (name == "ChapterString"_L1 && chapter.title.isEmpty() && !std::exchange(m_isNamed, true))
            chapter.title = ZLXmlChapters::textOfElement(m_reader);
        else if (isSwitchedOffBy(name))
            chapter.isEnabled = false;
    }

    /// Whether the element with this name, in which the reader stands, hides its chapter or switches it off.
    bool isSwitchedOffBy(const QString& name)
    {
        if (name == "ChapterFlagHidden"_L1)
            return ZLXmlChapters::textOfElement(m_reader).trimmed() == "1"_L1;
        return name == "ChapterFlagEnabled"_L1 && ZLXmlChapters::textOfElement(m_reader).trimmed() == "0"_L1;
    }

    static void leaveOutUntimed(ZLChapterList& edition)
    {
        const qsizetype untimed =
            edition.chapters.removeIf([](const ZLListedChapter& chapter) { return chapter.start < 0.0; });
        if (untimed > 0)
            edition.remarks.append({ 0, MatroskaTexts::tr("Chapters without a time were left out: %1.").arg(untimed) });
    }

    QXmlStreamReader m_reader;
    QList<ZLChapterList> m_editions;
    /// Indexes of the chapters that the reader stands in, outermost first.
    QList<qsizetype> m_open;
    bool m_isNamed = false;
};

bool recognises(const ZLListSource& source)
{
    return source.xmlRootName() == "Chapters"_L1;
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    auto editions = EditionsReader(source.text()).read();
    if (editions && editions.value().isEmpty())
        return QList { ZLChapterList {} };
    return editions;
}

/// The form counts nanoseconds, which no time of ours tells apart.
QString fullTime(double seconds)
{
    constexpr int microseconds = 6;
    return ZLListTime::clock(seconds, microseconds) + "000"_L1;
}

void writeChapter(QXmlStreamWriter& writer, const ZLListedChapter& chapter, std::optional<double> end)
{
    writer.writeStartElement(u"ChapterAtom"_s);
    writer.writeTextElement(u"ChapterTimeStart"_s, fullTime(chapter.start));
    if (end && *end > chapter.start)
        writer.writeTextElement(u"ChapterTimeEnd"_s, fullTime(*end));
    writer.writeStartElement(u"ChapterDisplay"_s);
    writer.writeTextElement(u"ChapterString"_s, chapter.title);
    writer.writeTextElement(u"ChapterLanguage"_s, u"und"_s);
    writer.writeEndElement();
    writer.writeEndElement();
}

QByteArray write(const ZLListToWrite& list)
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeDTD(u"<!DOCTYPE Chapters SYSTEM \"matroskachapters.dtd\">"_s);
    writer.writeStartElement(u"Chapters"_s);
    writer.writeStartElement(u"EditionEntry"_s);
    for (qsizetype i = 0; i < list.chapters.size(); ++i) {
        const bool isLast = i + 1 == list.chapters.size();
        writeChapter(writer, list.chapters.at(i), isLast ? list.end : list.chapters.at(i + 1).start);
    }
    writer.writeEndDocument();
    return bytes;
}

}

ZLListForm ZLMatroskaChapters::form()
{
    return { .name = "Matroska Chapters"_L1,
        .fileType = "xml"_L1,
        .unitsPerSecond = 1e6,
        .limits = ZLListLimit::Links | ZLListLimit::LineBreaks | ZLListLimit::ControlCharacters,
        .recognises = recognises,
        .read = read,
        .write = write };
}

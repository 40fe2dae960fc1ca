#include "lists/forms/ZLFinalCutProject.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"
#include "lists/forms/ZLXmlChapters.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct ProjectTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLFinalCutProject)
};

/// "3723500/1000s" or "12s".
std::optional<double> rationalTime(QStringView text)
{
    if (!text.endsWith(u's'))
        return std::nullopt;
    const QList<QStringView> parts = text.chopped(1).split(u'/');
    const auto numerator = ZLListTime::fromNumber(parts.constFirst());
    const auto denominator = parts.size() == 2 ? ZLListTime::fromNumber(parts.constLast()) : 1.0;
    if (!numerator || !denominator || *denominator <= 0.0 || parts.size() > 2)
        return std::nullopt;
    return *numerator / *denominator;
}

/// Reads the projects of one document. Each clip counts its inside by a time line of its own; the markers are counted
/// by the project's.
class ProjectReader {
public:
    explicit ProjectReader(const QString& text)
        : m_reader(text)
    {
    }

    ZLResult<QList<ZLChapterList>> read()
    {
        for (auto tag = ZLXmlChapters::nextTag(m_reader); !m_reader.atEnd(); tag = ZLXmlChapters::nextTag(m_reader)) {
            if (tag == QXmlStreamReader::StartElement)
                enter();
            else if (!m_shifts.isEmpty())
                m_shifts.removeLast();
        }
        if (m_reader.hasError())
            return ZLXmlChapters::error(m_reader);
        for (ZLChapterList& list : m_lists)
            std::ranges::stable_sort(list.chapters, {}, &ZLListedChapter::start);
        return std::move(m_lists);
    }

private:
    void enter()
    {
        const QStringView name = m_reader.name();
        if (name == "project"_L1 || (m_lists.isEmpty() && name == "clip"_L1))
            m_lists.append(ZLChapterList { .name = m_reader.attributes().value("name"_L1).toString() });
        if (name == "chapter-marker"_L1 || name == "marker"_L1)
            takeMarker(name == "chapter-marker"_L1);
        m_shifts.append(shift() + shiftOfElement());
    }

    /// What is to be added to a time inside of the innermost element for the project's time.
    [[nodiscard]] double shift() const { return m_shifts.isEmpty() ? 0.0 : m_shifts.constLast(); }

    [[nodiscard]] double shiftOfElement() const
    {
        const QXmlStreamAttributes attributes = m_reader.attributes();
        const auto timeOf = [&](QLatin1StringView name) { return rationalTime(attributes.value(name)); };
        return timeOf("offset"_L1).value_or(0.0) - timeOf("start"_L1).value_or(timeOf("tcStart"_L1).value_or(0.0));
    }

    void takeMarker(bool isChapter)
    {
        if (m_lists.isEmpty())
            m_lists.append(ZLChapterList {});
        const QXmlStreamAttributes attributes = m_reader.attributes();
        if (const auto start = rationalTime(attributes.value("start"_L1)))
            m_lists.last().chapters.append(
                { *start + shift(), attributes.value("value"_L1).toString(), {}, isChapter });
        else
            ZLListText::noteUnknownLine(m_lists.last(), m_reader.lineNumber() - 1);
    }

    QXmlStreamReader m_reader;
    QList<ZLChapterList> m_lists;
    QList<double> m_shifts;
};

bool recognises(const ZLListSource& source)
{
    return source.xmlRootName() == "fcpxml"_L1;
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    auto lists = ProjectReader(source.text()).read();
    if (lists && lists.value().isEmpty())
        return QList { ZLChapterList {} };
    return lists;
}

}

ZLListForm ZLFinalCutProject::form()
{
    return { .name = "Final Cut Pro X"_L1,
        .fileType = "fcpxml"_L1,
        .unitsPerSecond = 1000.0,
        .limits = ZLListLimit::Links | ZLListLimit::ControlCharacters,
        .recognises = recognises,
        .read = read,
        .write = nullptr };
}

#include "lists/forms/ZLHindenburgSession.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"
#include "lists/forms/ZLXmlChapters.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct SessionTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLHindenburgSession)
};

bool recognises(const ZLListSource& source)
{
    return source.xmlRootName() == "Session"_L1;
}

void takeMarker(ZLChapterList& list, const QXmlStreamReader& reader)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    if (const auto start = ZLListTime::fromClock(attributes.value("Time"_L1).trimmed(), 1))
        list.chapters.append({ *start, attributes.value("Name"_L1).toString(), attributes.value("URL"_L1).toString() });
    else
        ZLListText::noteUnknownLine(list, reader.lineNumber() - 1);
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    ZLChapterList list;
    int otherMarkers = 0;
    QXmlStreamReader reader(source.text());
    for (auto tag = ZLXmlChapters::nextTag(reader); !reader.atEnd(); tag = ZLXmlChapters::nextTag(reader)) {
        if (tag != QXmlStreamReader::StartElement || reader.name() != "Marker"_L1)
            continue;
        if (reader.attributes().value("Type"_L1) == "Chapter"_L1)
            takeMarker(list, reader);
        else
            ++otherMarkers;
    }
    if (reader.hasError())
        return ZLXmlChapters::error(reader);
    if (otherMarkers > 0)
        list.remarks.append({ 0, SessionTexts::tr("Markers of another type were left out: %1.").arg(otherMarkers) });
    return QList { list };
}

}

ZLListForm ZLHindenburgSession::form()
{
    return { .name = "Hindenburg"_L1,
        .fileType = "nhsx"_L1,
        .unitsPerSecond = 1000.0,
        .limits = ZLListLimit::ControlCharacters,
        .recognises = recognises,
        .read = read,
        .write = nullptr };
}

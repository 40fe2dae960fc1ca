#include "lists/forms/ZLJSONChapters.h"

#include "lists/forms/ZLJSONValues.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

/// The title in the user's language, else the first one.
QString titleIn(const QJsonArray& titles)
{
    const QString language = QLocale().name().section(u'_', 0, 0);
    for (const auto& title : titles) {
        if (title.toObject().value("language"_L1).toString().section(u'-', 0, 0) == language)
            return title.toObject().value("title"_L1).toString();
    }
    return titles.first().toObject().value("title"_L1).toString();
}

bool recognises(const ZLListSource& source)
{
    if (!source.json() || !source.json()->isArray())
        return false;
    const QJsonArray chapters = source.json()->array();
    return chapters.isEmpty() || chapters.first().toObject().contains("start-time"_L1);
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    ZLChapterList list;
    const QJsonArray chapters = source.json()->array();
    for (qsizetype i = 0; i < chapters.size(); ++i) {
        const QJsonObject chapter = chapters.at(i).toObject();
        if (const auto start = ZLJSONValues::number(chapter.value("start-time"_L1)))
            list.chapters.append({ *start, titleIn(chapter.value("titles"_L1).toArray()) });
        else
            ZLJSONValues::noteUntimed(list, i);
    }
    return QList { list };
}

}

ZLListForm ZLJSONChapters::form()
{
    return { .name = "JSON"_L1,
        .fileType = "json"_L1,
        .unitsPerSecond = 1000.0,
        .limits = ZLListLimit::Links,
        .recognises = recognises,
        .read = read,
        .write = nullptr };
}

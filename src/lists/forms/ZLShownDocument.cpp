#include "lists/forms/ZLShownDocument.h"

#include "lists/forms/ZLJSONValues.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

bool recognises(const ZLListSource& source)
{
    const auto chapters = ZLJSONValues::arrayOf(source, u"chapters"_s);
    return chapters && source.json()->object().contains("duration"_L1)
        && (chapters->isEmpty() || chapters->first().toObject().contains("timeStamp"_L1));
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    ZLChapterList list;
    const QJsonArray chapters = *ZLJSONValues::arrayOf(source, u"chapters"_s);
    for (qsizetype i = 0; i < chapters.size(); ++i) {
        const QJsonObject chapter = chapters.at(i).toObject();
        const auto start = ZLJSONValues::number(chapter.value("timeStamp"_L1));
        if (start)
            list.chapters.append({ .start = *start,
                .title = chapter.value("title"_L1).toString(),
                .link = chapter.value("link"_L1).toString(),
                .isEnabled = chapter.value("enabled"_L1).toBool(true),
                .tags = chapter.value("tags"_L1).toString(),
                .date = QDateTime::fromString(chapter.value("date"_L1).toString(), Qt::ISODateWithMs),
                .uuid = chapter.value("uuid"_L1).toString() });
        else
            ZLJSONValues::noteUntimed(list, i);
    }
    return QList { list };
}

}

ZLListForm ZLShownDocument::form()
{
    return { .name = "Zelta JSON"_L1,
        .fileType = "json"_L1,
        .unitsPerSecond = 1e6,
        .limits = {},
        .recognises = recognises,
        .read = read,
        .write = nullptr };
}

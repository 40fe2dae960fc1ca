#include "lists/forms/ZLPodcastChapters.h"

#include "lists/ZLListTime.h"
#include "lists/forms/ZLJSONValues.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

bool recognises(const ZLListSource& source)
{
    const auto chapters = ZLJSONValues::arrayOf(source, u"chapters"_s);
    if (!chapters)
        return false;
    return chapters->isEmpty() || chapters->first().toObject().contains("startTime"_L1);
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    ZLChapterList list { .name = source.json()->object().value("title"_L1).toString() };
    const QJsonArray chapters = *ZLJSONValues::arrayOf(source, u"chapters"_s);
    for (qsizetype i = 0; i < chapters.size(); ++i) {
        const QJsonObject chapter = chapters.at(i).toObject();
        const auto start = ZLJSONValues::number(chapter.value("startTime"_L1));
        if (!start) {
            ZLJSONValues::noteUntimed(list, i);
            continue;
        }
        list.chapters.append({ *start, chapter.value("title"_L1).toString(), chapter.value("url"_L1).toString(),
            chapter.value("toc"_L1).toBool(true) });
    }
    return QList { list };
}

QByteArray write(const ZLListToWrite& list)
{
    constexpr double perSecond = 1000.0;
    QJsonArray chapters;
    for (const ZLListedChapter& chapter : list.chapters) {
        const double milliseconds = double(ZLListTime::units(chapter.start, perSecond));
        QJsonObject written { { u"startTime"_s, milliseconds / perSecond }, { u"title"_s, chapter.title } };
        if (!chapter.link.isEmpty())
            written.insert("url"_L1, chapter.link);
        chapters.append(written);
    }
    return QJsonDocument(QJsonObject { { u"version"_s, u"1.2.0"_s }, { u"chapters"_s, chapters } }).toJson();
}

}

ZLListForm ZLPodcastChapters::form()
{
    return { .name = "Podcast Chapters"_L1,
        .fileType = "json"_L1,
        .unitsPerSecond = 1000.0,
        .limits = {},
        .recognises = recognises,
        .read = read,
        .write = write };
}

// Each written form is read by a program that others wrote; see read_lists.py.
#include "lists/ZLReadText.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

ZLListToWrite peersList()
{
    return { .chapters = { { 0.0, u"Welcome"_s, u"https://a.example/"_s }, { 10.5, u"Grüße, «世界» – مرحبا"_s },
                 { 62.04, u"Q&A: \"x\" = #1; <b> \\ 'y'"_s }, { 75.999, u"👩‍👩‍👧 done"_s } },
        .end = 90.0,
        .fileBaseName = u"Episode 1"_s };
}

QJsonArray described(const ZLListToWrite& list)
{
    QJsonArray chapters;
    for (const ZLListedChapter& chapter : list.chapters)
        chapters.append(
            QJsonObject { { u"start"_s, chapter.start }, { u"title"_s, chapter.title }, { u"link"_s, chapter.link } });
    return chapters;
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size();
}

}

TEST(ZLListPeers, ProgramsOfOthersReadWhatWasWritten)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(writeFile(folder.filePath(u"chapters.json"_s), QJsonDocument(described(peersList())).toJson()));
    for (const ZLListForm& form : ZLListForms::written()) {
        const QString name = QString(form.name).replace(u' ', u'-') + u'.' + form.fileType;
        ASSERT_TRUE(writeFile(folder.filePath(name), ZLListForms::write(form, peersList())));
    }

    QProcess reader;
    reader.start(QStringLiteral(ZELTA_PYTHON), { QStringLiteral(ZELTA_LIST_READER), folder.path() });
    ASSERT_TRUE(reader.waitForFinished(120'000));

    EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().constData();
    EXPECT_EQ(reader.readAllStandardOutput().trimmed(),
        "Audacity-Labels CUE-Sheet Matroska-Chapters Podcast-Chapters REAPER-Markers Show-Notes WebVTT-Chapters "
        "ffmetadata "
        "mp4chaps");
}

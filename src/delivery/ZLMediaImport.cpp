#include "delivery/ZLMediaImport.h"

#include "model/ZLChapter.h"
#include "platform/media/file/ZLMediaFile.h"

#include <QMimeDatabase>

using namespace Qt::StringLiterals;

bool ZLMediaImport::isAudioFile(const QString& path)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    return type.name().startsWith("audio/"_L1) || ZLMediaFile::isMediaFile(path);
}

ZLResult<ZLDocumentContents> ZLMediaImport::read(const QString& audioPath)
{
    const auto file = ZLMediaFile::read(audioPath);
    if (!file)
        return file.error();
    ZLDocumentContents contents;
    contents.duration = double(file.value().length) / 1000.0;
    for (const ZLMediaChapter& found : file.value().chapters) {
        ZLChapter chapter;
        chapter.setTimeStamp(double(found.start) / 1000.0);
        chapter.setTitle(found.title.isNull() ? QStringLiteral("") : found.title);
        chapter.setLink(found.link.isNull() ? QStringLiteral("") : found.link);
        contents.chapters.append(chapter.dictionaryRepresentation());
    }
    return contents;
}

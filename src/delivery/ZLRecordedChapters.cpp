#include "delivery/ZLRecordedChapters.h"

#include "delivery/ZLMediaImport.h"
#include "document/ZLChapterDocument.h"
#include "document/shared/ZLRecorderFiles.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

QList<ZLRecorderFile> filesOf(const ZLChapterDocument& document)
{
    return ZLRecorderFiles::in(document.extras().value(ZLRecorderFiles::Key));
}

}

QStringList ZLRecordedChapters::audioFiles(const ZLChapterDocument& document)
{
    const QStringList patterns = ZLMediaImport::NamePatterns.split(u' ');
    QStringList paths;
    for (const ZLRecorderFile& file : filesOf(document)) {
        if (QDir::match(patterns, QFileInfo(file.path).fileName()))
            paths.append(file.path);
    }
    return paths;
}

std::optional<ZLChapterSequence> ZLRecordedChapters::forFile(ZLChapterDocument& document, const QString& path)
{
    const QList<ZLRecorderFile> files = filesOf(document);
    const auto file = std::ranges::find(files, path, &ZLRecorderFile::path);
    if (file == files.cend() || file->reading == 0.0)
        return std::nullopt;
    ZLChapterSequence placed;
    const ZLChapterSequence chapters = document.chapterManager().allChapters();
    for (const ZLChapterPointer& chapter : chapters) {
        placed.append(std::make_shared<ZLChapter>(chapter->archivedRepresentation()));
        placed.last()->setTimeStamp(chapter->timeStamp() - file->reading);
    }
    return placed;
}

#include "document/saving/ZLTheirVersion.h"

#include "document/ZLStoredDocument.h"
#include "document/saving/ZLDocumentPlace.h"
#include "document/saving/journal/ZLJournalRecord.h"
#include "platform/ZLBoundedFile.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

ZLResult<ZLTheirVersion> ZLTheirVersion::read(const QString& path)
{
    const auto read = ZLStoredDocument::read(path);
    if (!read)
        return read.error();
    return ZLTheirVersion(read.value().bytes, read.value().contents);
}

ZLTheirVersion::ZLTheirVersion(const QByteArray& bytes, const ZLDocumentContents& contents)
    : m_bytes(bytes)
    , m_digest(ZLJournalRecords::digestOf(bytes))
    , m_parts(ZLDocumentParts::of(contents))
{
}

ZLKnownFile ZLTheirVersion::toBeReplaced(const QString& path, const QDateTime& time)
{
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
    return bytes ? ZLKnownFile(bytes.value(), ZLJournalRecords::digestOf(bytes.value()), time) : ZLKnownFile();
}

QString ZLTheirVersion::freePathBeside(const QString& path)
{
    const QFileInfo file(path);
    QString free;
    for (int number = 2; free.isEmpty() || QFile::exists(free); ++number)
        free = ZLDocumentPlace::pathWithExtension(
            u"%1/%2 %3.%4"_s.arg(file.path(), file.completeBaseName(), QString::number(number), file.suffix()));
    return free;
}

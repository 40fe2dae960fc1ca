#include "document/saving/opening/ZLReadDocument.h"

#include "document/ZLUnreadableDocument.h"
#include "document/saving/journal/ZLJournalRecord.h"

ZLResult<ZLReadDocument> ZLReadDocument::read(const QString& path, ZLFileLinks links)
{
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document, links);
    if (!bytes)
        return bytes.error();
    const auto contents = ZLDocumentFile::decode(bytes.value(), ZLDictionaryForm::Archived);
    if (!contents)
        return ZLUnreadableDocument::error(path, bytes.value());
    return of(ZLDocumentParts::of(contents.value()), bytes.value());
}

ZLReadDocument ZLReadDocument::of(const ZLDocumentParts& parts, const QByteArray& fileBytes)
{
    ZLReadDocument read {
        .parts = parts,
        .state = parts.snapshot(),
        .fileBytes = fileBytes,
        .version = ZLJournalRecords::digestOf(fileBytes),
    };
    read.bytes = read.state.encoded();
    // As a rule both are the same, and need room once.
    if (read.bytes == fileBytes)
        read.bytes = fileBytes;
    return read;
}

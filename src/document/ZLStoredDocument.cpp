#include "document/ZLStoredDocument.h"

#include "document/ZLUnreadableDocument.h"

#include <utility>

namespace {

ZLResult<ZLStoredDocument> readAs(const QString& path, ZLFileLinks links, ZLDictionaryForm form)
{
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document, links);
    if (!bytes)
        return bytes.error();
    auto contents = ZLDocumentFile::decode(bytes.value(), form);
    if (!contents)
        return ZLUnreadableDocument::error(path, bytes.value());
    return ZLStoredDocument { .bytes = bytes.value(), .contents = std::move(contents).value() };
}

}

ZLResult<ZLStoredDocument> ZLStoredDocument::read(const QString& path, ZLFileLinks links)
{
    return readAs(path, links, ZLDictionaryForm::Map);
}

ZLResult<ZLDocumentContents> ZLStoredDocument::contentsOf(const QString& path, ZLFileLinks links, ZLDictionaryForm form)
{
    auto read = readAs(path, links, form);
    if (!read)
        return read.error();
    return std::move(read).value().contents;
}

#include "import/ZLImportSource.h"

#include "document/ZLDocumentFile.h"
#include "document/ZLStoredDocument.h"
#include "lists/forms/ZLMP4ChapsText.h"
#include "lists/forms/ZLSimpleList.h"
#include "model/ZLChapterManager.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLFileError.h"
#include "platform/ZLFileExtension.h"
#include "platform/media/file/ZLMediaFile.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

ZLImportSource sourceOf(const QString& formName, const ZLChapterList& list, double duration)
{
    return { .found = { .formName = formName, .lists = { list } }, .duration = duration };
}

ZLResult<ZLImportSource> fromMedia(const QString& path)
{
    const auto file = ZLMediaFile::read(path);
    if (!file)
        return file.error();
    ZLChapterList list;
    for (const ZLMediaChapter& chapter : file.value().chapters)
        list.chapters.append({ double(chapter.start) / 1000.0, chapter.title, chapter.link });
    return sourceOf(file.value().formName, list, double(file.value().length) / 1000.0);
}

ZLListedChapter listed(const ZLChapter& chapter)
{
    const bool isDated = chapter.realDate() != ZLChapter::distantPast();
    return { .start = chapter.timeStamp(),
        .title = chapter.title(),
        .link = chapter.link(),
        .isEnabled = chapter.isEnabled(),
        .tags = chapter.tags(),
        .date = isDated ? chapter.realDate() : QDateTime(),
        .uuid = chapter.uuid() };
}

ZLResult<ZLImportSource> fromDocument(const QString& path)
{
    const auto contents = ZLStoredDocument::contentsOf(path);
    if (!contents)
        return contents.error();
    ZLChapterList list;
    for (const ZLChapterPointer& chapter : ZLChapterManager(contents.value().chapters).allChapters())
        list.chapters.append(listed(*chapter));
    return sourceOf(u"Zelta"_s, list, contents.value().duration);
}

/// Lines of forms in which a line without a time is a text like any other.
QStringList textsWithoutTime(const ZLListSource& source, const ZLReadLists& found)
{
    if (found.formName != ZLSimpleList::form().name && found.formName != ZLMP4ChapsText::form().name)
        return {};
    QStringList texts;
    for (const ZLListRemark& remark : found.lists.constFirst().remarks) {
        if (remark.line > 0)
            texts.append(source.lines().at(remark.line - 1).trimmed().toString());
    }
    return texts;
}

ZLResult<ZLImportSource> fromList(const ZLListSource& source)
{
    auto found = ZLListForms::read(source);
    if (!found)
        return found.error();
    const QStringList texts = textsWithoutTime(source, found.value());
    return ZLImportSource { .found = std::move(found).value(), .textsWithoutTime = texts };
}

ZLResult<ZLImportSource> fromListFile(const QString& path)
{
    const auto bytes = ZLBoundedFile::read(path, ZLListSource::MostBytes);
    if (!bytes)
        return bytes.error();
    const auto source = ZLListSource::fromBytes(bytes.value());
    auto found = source ? fromList(source.value()) : ZLResult<ZLImportSource>(source.error());
    return found ? found : ZLFileError::because(path, found.error().message);
}

bool isDocument(const QString& path)
{
    constexpr auto sign = "bplist";
    constexpr qint64 length = 6;
    return ZLFileExtension::endsName(path, ZLDocumentFile::Extension)
        || ZLBoundedFile::findBeginning(path, length).bytes == sign;
}

}

bool ZLImportSource::isList(const QString& path)
{
    return !isDocument(path) && !ZLMediaFile::isMediaFile(path);
}

ZLResult<ZLImportSource> ZLImportSource::fromFile(const QString& path)
{
    if (ZLMediaFile::isMediaFile(path))
        return fromMedia(path);
    return isDocument(path) ? fromDocument(path) : fromListFile(path);
}

ZLResult<ZLImportSource> ZLImportSource::fromText(const QString& text)
{
    const auto source = ZLListSource::fromText(text);
    return source ? fromList(source.value()) : source.error();
}

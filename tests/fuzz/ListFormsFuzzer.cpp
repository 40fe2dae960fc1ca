// Any bytes into the readers of chapter lists. A reader must take what it recognises without a crash, each chapter must
// have a time, and what is written of it must be readable again.
#include "lists/forms/ZLListForms.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkWritten(const ZLListForm& form, const QList<ZLListedChapter>& chapters)
{
    const auto source = ZLListSource::fromBytes(ZLListForms::write(form, { .chapters = chapters }));
    require(source.isOk());
    if (form.isRead() && form.recognises(source.value()))
        require(form.read(source.value()).isOk());
}

void checkList(const ZLChapterList& list)
{
    for (const ZLListedChapter& chapter : list.chapters)
        require(std::isfinite(chapter.start));
    for (const ZLListForm& form : ZLListForms::written())
        checkWritten(form, list.chapters);
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const auto source = ZLListSource::fromBytes({ reinterpret_cast<const char*>(bytes), qsizetype(size) });
    if (!source)
        return 0;
    const auto read = ZLListForms::read(source.value());
    if (!read)
        return 0;
    require(!read.value().lists.isEmpty());
    std::ranges::for_each(read.value().lists, checkList);
    return 0;
}

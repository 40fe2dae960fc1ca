// Any bytes into the reader of one form, ZELTA_LIST_FORM. What it recognises it has to read without a crash, each
// chapter has a time, and where the form is written too, the written list is recognised and has as many chapters.
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

const ZLListForm& testedForm()
{
    const auto form = std::ranges::find(ZLListForms::all(), QLatin1StringView(ZELTA_LIST_FORM), &ZLListForm::name);
    require(form != ZLListForms::all().cend() && form->isRead());
    return *form;
}

void checkWrittenAgain(const ZLListForm& form, const ZLChapterList& list)
{
    constexpr qsizetype mostInEveryForm = 99;
    const auto count =
        std::ranges::count_if(list.chapters, [](const ZLListedChapter& chapter) { return !(chapter.start < 0.0); });
    if (!form.isWritten() || count == 0 || count > mostInEveryForm)
        return;
    ZLListToWrite written { .chapters = list.chapters };
    std::ranges::stable_sort(written.chapters, {}, &ZLListedChapter::start);
    const auto source = ZLListSource::fromBytes(ZLListForms::write(form, written));
    require(source.isOk() && form.recognises(source.value()));
    const auto again = form.read(source.value());
    require(again.isOk() && again.value().constFirst().chapters.size() == count);
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const ZLListForm& form = testedForm();
    const auto source = ZLListSource::fromBytes({ reinterpret_cast<const char*>(bytes), qsizetype(size) });
    if (!source || !form.recognises(source.value()))
        return 0;
    const auto lists = form.read(source.value());
    if (!lists)
        return 0;
    require(!lists.value().isEmpty());
    for (const ZLChapterList& list : lists.value()) {
        for (const ZLListedChapter& chapter : list.chapters)
            require(std::isfinite(chapter.start));
        checkWrittenAgain(form, list);
    }
    return 0;
}

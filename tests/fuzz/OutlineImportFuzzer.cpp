// Any text into the outline import. Every chapter must stem from a line of its own, and a link must be found again in
// itself.
#include "templates/ZLOutlineImport.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkImportedChapter(const ZLChapter& chapter, QStringView text)
{
    require(!chapter.title().isEmpty() && !chapter.title().contains(u'\n'));
    require(text.contains(chapter.title()));
    if (chapter.link().isEmpty())
        return;
    require(text.contains(chapter.link()));
    require(ZLOutlineImport::linkInString(chapter.link()) == chapter.link());
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(bytes), qsizetype(size));
    const ZLChapterSequence chapters = ZLOutlineImport::chaptersInText(text);
    require(chapters.size() <= text.count(u'\n') + 1);
    for (const ZLChapterPointer& chapter : chapters)
        checkImportedChapter(*chapter, text);
    return 0;
}

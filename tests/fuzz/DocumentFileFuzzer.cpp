// Bytes from anywhere into a document: they are refused with a reason and leave it as it was, or everything that a
// window shows of it can be read, and its own bytes give the same document again.
#include "document/ZLChapterDocument.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr qsizetype kShownRows = 50;

void showEverything(ZLChapterDocument& document)
{
    (void)document.clockText();
    (void)document.lastChapterAgeText();
    const int rows = int(std::min<qsizetype>(document.tableModel().rowCount(), kShownRows));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < document.tableModel().columnCount(); ++column)
            (void)document.tableModel().index(row, column).data();
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArrayView data(bytes, qsizetype(size));
    ZLChapterDocument document({});
    ZLFileOperationError error;
    if (!document.readFromData(data, {}, &error)) {
        if (error.message.isEmpty() || document.chapterManager().count() != 0)
            std::abort();
        return 0;
    }
    // Shared values may make little bytes into much; to write them out in full would only slow the search down.
    if (document.chapterManager().count() > 2000)
        return 0;
    showEverything(document);
    document.moveChaptersByMilliseconds(-1500.0F);
    document.undoManager().undo();
    const QByteArray written = document.dataOfType();
    ZLChapterDocument again({});
    if (!again.readFromData(written) || again.chapterManager().count() != document.chapterManager().count())
        std::abort();
    return 0;
}

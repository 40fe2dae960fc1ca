#pragma once

#include "BenchChapters.h"
#include "document/ZLChapterDocument.h"

/// Documents of so many chapters, for measurements.
namespace BenchDocument {

inline void fill(ZLChapterDocument& document, int count)
{
    document.chapterManager().setChapters(BenchChapters::list(count));
    document.recording().beginAnewAt(count * BenchChapters::Seconds);
}

/// In the file form.
inline QByteArray bytes(int count)
{
    ZLChapterDocument document { ZLDocumentEnvironment {} };
    fill(document, count);
    return document.dataOfType();
}

}

// Any bytes as a Hindenburg session that chapters are put into. Every byte of the session must come back in its order,
// the markers must be there when the session has a place for them, and what is refused says why.
#include "export/formats/ZLHindenburgExporter.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

ZLChapterSequence fuzzChapters()
{
    auto chapter = std::make_shared<ZLChapter>();
    chapter->setTimeStamp(12.3456);
    chapter->setTitle(QStringLiteral("Q&A"));
    return { chapter };
}

/// Without line feeds and without sections that hold nothing, which is all that an export of no chapters inserts.
QByteArray skeleton(QByteArray session)
{
    const QByteArray emptySection = "<Markers></Markers></Session>";
    session.replace("\n", "");
    while (session.contains(emptySection))
        session.replace(emptySection, "</Session>");
    return session;
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    ZLExportInput input { .existingBytes = QByteArray(reinterpret_cast<const char*>(bytes), qsizetype(size)) };
    const QByteArray& session = input.existingBytes;
    const ZLHindenburgExporter exporter;
    const bool isAlert = exporter.alertFor(input).has_value();
    require(isAlert == (session.isEmpty() || !session.isValidUtf8() || session.startsWith("</Session>")));
    const auto withoutChapters = exporter.exportedBytes(input);
    require(withoutChapters.isOk() == withoutChapters.error().message.isEmpty());
    require(!isAlert || !withoutChapters);
    if (!withoutChapters)
        return 0;
    const bool isSplit = session.contains("<Markers/>");
    require(isSplit || skeleton(withoutChapters.value()) == skeleton(session));
    input.chapters = fuzzChapters();
    const auto withChapters = exporter.exportedBytes(input);
    if (!withChapters)
        return 0;
    const bool hasPlace = session.contains("</Session>") || session.contains("<Markers");
    const bool isAdded = withChapters.value().contains("\" Name=\"Q&amp;A\" Time=\"12.346\" Type=\"Chapter\"");
    require(isAdded || !hasPlace || isSplit);
    require(withChapters.value().size() >= withoutChapters.value().size());
    return 0;
}

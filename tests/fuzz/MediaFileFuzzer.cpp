// Any bytes as an audio file that chapters are read from and put into. A file that is understood must be writable or
// say why not; what was written must be read again, with these chapters and no others.
#include "platform/media/ZLPieceWriter.h"
#include "platform/media/file/ZLMediaFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// A file in memory, opened again by its descriptor.
class MemoryFile {
public:
    MemoryFile()
        : m_descriptor(memfd_create("fuzz", 0))
    {
        require(m_descriptor >= 0);
    }
    ~MemoryFile() { close(m_descriptor); }
    Q_DISABLE_COPY_MOVE(MemoryFile)

    [[nodiscard]] int descriptor() const { return m_descriptor; }
    [[nodiscard]] std::shared_ptr<ZLMediaSource> source() const
    {
        return ZLMediaSource::open(QStringLiteral("/proc/self/fd/%1").arg(m_descriptor)).value();
    }

private:
    int m_descriptor;
};

ZLMediaChapters fuzzChapters(qsizetype most)
{
    const ZLMediaChapters chapters { { 1, 20, QStringLiteral("Q&A"), {} }, { 20, 30, QStringLiteral("世界"), {} } };
    return chapters.first(std::min(chapters.size(), most));
}

void requireWritten(const ZLMediaFormat& format, const ZLMediaSource& source, const ZLFilePieces& pieces,
    const ZLMediaChapters& chapters)
{
    const MemoryFile output;
    ZLWorkProgress progress;
    require(ZLPieceWriter(source, output.descriptor(), progress).write(pieces).isOk());
    const auto written = output.source();
    require(written->size() == pieces.size());
    const auto found = format.read(*written);
    require(found.isOk() && found.value().chapters.size() == chapters.size());
    for (qsizetype index = 0; index < chapters.size(); ++index)
        require(found.value().chapters.at(index).title == chapters.at(index).title);
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const MemoryFile input;
    require(write(input.descriptor(), bytes, size) == ssize_t(size));
    const auto source = input.source();
    const ZLMediaFormat* format = ZLMediaFile::formatOf(*source);
    if (!format)
        return 0;
    const auto contents = format->read(*source);
    require(contents.isOk() || !contents.error().message.isEmpty());
    if (!contents)
        return 0;
    const ZLMediaChapters chapters = fuzzChapters(contents.value().mostChapters);
    const auto pieces = format->withChapters(*source, chapters);
    require(pieces.isOk() || !pieces.error().message.isEmpty());
    if (pieces)
        requireWritten(*format, *source, pieces.value(), chapters);
    return 0;
}

// Bytes from anywhere as what was heard of a show: as a document that keeps it, and as frames and places in such a one.
// What is read has to be within its bounds, and the same when it is stored and read again.
#include "document/ZLDocumentFile.h"
#include "listening/ZLListeningData.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void readListening(const QVariant& stored)
{
    const auto data = ZLListeningData::fromStored(stored);
    double end = 0.0;
    for (const ZLListeningSpan& span : data.spans()) {
        require(!span.frames.empty() && span.start >= 0.0 && span.end() <= ZLListeningData::LongestShow);
        // Half a frame of one may reach into the next.
        require(span.start >= end - span.interval);
        end = span.end();
    }
    require(ZLListeningData::fromStored(data.stored()) == data);
    // One of a hundred hours is as good, but slow to make again and again.
    if (end > 600.0)
        return;
    const ZLHeardShow show = data.heardShow();
    require(show.zero >= 0.0 && show.zero < ZLSoundFingerprint::SecondsPerFrame + 1e-6);
    require(show.fingerprint.seconds() <= end + 1.0);
}

/// A span of each 20 bytes or more: a start, an interval and frames.
QVariant storedFrom(QByteArrayView bytes)
{
    QVariantList spans;
    while (bytes.size() >= 17) {
        double numbers[2];
        std::memcpy(numbers, bytes.data(), sizeof numbers);
        const qsizetype length = std::min<qsizetype>(quint8(bytes.at(16)), bytes.size() - 17);
        spans.append(QVariantMap { { QStringLiteral("Start"), numbers[0] }, { QStringLiteral("Interval"), numbers[1] },
            { QStringLiteral("Frames"), bytes.sliced(17, length).toByteArray() } });
        bytes = bytes.sliced(17 + length);
    }
    return QVariantMap { { QStringLiteral("Spans"), spans } };
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArrayView data(bytes, qsizetype(size));
    readListening(storedFrom(data));
    if (const auto contents = ZLDocumentFile::decode(data))
        readListening(contents.value().extras.value(ZLListeningData::Key));
    return 0;
}

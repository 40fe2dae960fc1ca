// Bytes from anywhere as the file that keeps what is heard while the clock runs. The digests keep altered bytes out, so
// the bytes are also taken for payloads and framed anew.
#include "document/listening/ZLListeningJournal.h"
#include "document/saving/journal/ZLJournalRecord.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void readFile(QByteArrayView bytes)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("show.listening"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), bytes.size()) != bytes.size())
        std::abort();
    file.close();
    ZLListeningData data;
    ZLListeningJournal::addTo(data, path);
    for (const ZLListeningSpan& span : data.spans()) {
        if (span.frames.empty() || !(span.start >= 0.0) || !(span.end() <= ZLListeningData::LongestShow))
            std::abort();
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArrayView data(bytes, qsizetype(size));
    readFile(data);
    QByteArray journal = ZLJournalRecords::Signature;
    quint32 sequence = 0;
    for (qsizetype at = 0; at < data.size(); at += 32) {
        const QByteArray payload = data.sliced(at, std::min<qsizetype>(32, data.size() - at)).toByteArray();
        journal += ZLJournalRecords::encoded(sequence++, { ZLJournalRecord::Kind::Heard, payload });
    }
    readFile(journal);
    return 0;
}

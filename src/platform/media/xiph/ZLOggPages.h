#pragma once

#include "platform/media/ZLFilePieces.h"
#include "platform/media/ZLMediaSource.h"

#include <optional>

/// The header of one page of an Ogg file.
struct ZLOggPage {
    qint64 offset = 0;
    /// Header and contents.
    qint64 size = 0;
    bool continuesPacket = false;
    bool beginsStream = false;
    /// The position of the last sample that ends here; -1 when no packet does.
    qint64 position = -1;
    quint32 stream = 0;
    quint32 number = 0;
    /// The lengths of the pieces, each 255 but for the last one of a packet.
    QByteArray segments {};

    [[nodiscard]] qint64 headerSize() const { return 27 + segments.size(); }

    /// The page at `offset`, or nothing when there is none as a whole.
    [[nodiscard]] static std::optional<ZLOggPage> at(const ZLMediaSource& source, qint64 offset);
};

/// The first packets of an Ogg file, which describe it, and how its pages are written anew around them.
namespace ZLOggPages {

struct Headers {
    quint32 stream = 0;
    QList<QByteArray> packets {};
    /// Where the second page stands; the first one has the first packet alone.
    qint64 begin = 0;
    /// Where the pages of the sound begin.
    qint64 end = 0;
    /// Pages from `begin` to `end`.
    int pages = 0;
};

/// The first `count` packets.
[[nodiscard]] ZLResult<Headers> readHeaders(const ZLMediaSource& source, int count);

/// The position of the last sample of the stream; nothing when the file ends with another stream.
[[nodiscard]] std::optional<qint64> lastPosition(const ZLMediaSource& source, quint32 stream);

/// The file with these packets behind the first one. They take as many pages as before where they fit; where they do
/// not, the pages of the sound are numbered anew, with their bytes as they are.
[[nodiscard]] ZLFilePieces withPackets(
    const ZLMediaSource& source, const Headers& headers, const QList<QByteArray>& packets);

}

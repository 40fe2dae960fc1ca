#pragma once

#include <QByteArray>

/// The checksum of an Ogg page.
namespace ZLOggChecksum {

/// Of a whole page whose own field for the checksum is 0.
[[nodiscard]] quint32 of(const QByteArray& page);

/// What changes in the checksum when the bits of `change` change in bytes that are followed by `bytesBehind` others.
/// The checksum is linear, so the rest of the page does not matter.
[[nodiscard]] quint32 ofChange(const QByteArray& change, qint64 bytesBehind);

}

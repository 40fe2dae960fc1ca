#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>
#include <QList>

#include <functional>

/// Takes bytes in their order.
using ZLByteTaker = std::function<ZLStatus(const QByteArray& bytes)>;

/// One stretch of a new file.
struct ZLFilePiece {
    /// Empty where the piece comes from the source or is made.
    QByteArray bytes {};
    /// Where it stands in the source.
    qint64 offset = 0;
    qint64 size = 0;
    /// Gives the bytes while they are written, where they are neither known nor those of the source.
    std::function<ZLStatus(const ZLByteTaker& take)> make {};

    /// Whether it is a stretch of the source.
    [[nodiscard]] bool isRange() const { return bytes.isEmpty() && !make; }
};

/// A new file as stretches of the old one with other bytes in between. It is small, however large the files are.
class ZLFilePieces {
public:
    void append(const QByteArray& bytes);
    void append(const ZLFilePieces& other);
    /// Bytes of the source, as they are.
    void appendRange(qint64 offset, qint64 size);
    /// `size` bytes that are made while they are written.
    void appendMade(qint64 size, std::function<ZLStatus(const ZLByteTaker& take)> make);

    /// The same without the first `size` bytes, which lie in one stretch of the source.
    [[nodiscard]] ZLFilePieces withoutBeginning(qint64 size) const;

    [[nodiscard]] qint64 size() const { return m_size; }
    [[nodiscard]] const QList<ZLFilePiece>& pieces() const { return m_pieces; }

private:
    QList<ZLFilePiece> m_pieces;
    qint64 m_size = 0;
};

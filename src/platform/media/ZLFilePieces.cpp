#include "platform/media/ZLFilePieces.h"

void ZLFilePieces::append(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    m_pieces.append(ZLFilePiece { .bytes = bytes, .size = bytes.size() });
    m_size += bytes.size();
}

void ZLFilePieces::append(const ZLFilePieces& other)
{
    for (const ZLFilePiece& piece : other.m_pieces) {
        if (piece.isRange()) {
            appendRange(piece.offset, piece.size);
            continue;
        }
        m_pieces.append(piece);
        m_size += piece.size;
    }
}

void ZLFilePieces::appendRange(qint64 offset, qint64 size)
{
    if (size <= 0)
        return;
    m_size += size;
    if (!m_pieces.isEmpty() && m_pieces.last().isRange() && m_pieces.last().offset + m_pieces.last().size == offset) {
        m_pieces.last().size += size;
        return;
    }
    m_pieces.append(ZLFilePiece { .offset = offset, .size = size });
}

void ZLFilePieces::appendMade(qint64 size, std::function<ZLStatus(const ZLByteTaker& take)> make)
{
    m_pieces.append(ZLFilePiece { .size = size, .make = std::move(make) });
    m_size += size;
}

ZLFilePieces ZLFilePieces::withoutBeginning(qint64 size) const
{
    ZLFilePieces pieces = *this;
    if (size == 0)
        return pieces;
    ZLFilePiece& first = pieces.m_pieces.first();
    Q_ASSERT(first.isRange() && first.size >= size);
    first.offset += size;
    first.size -= size;
    pieces.m_size -= size;
    return pieces;
}

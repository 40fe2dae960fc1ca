#pragma once

#include <QByteArrayView>
#include <QtEndian>

#include <optional>

/// Takes big-endian values and padded texts from the front of some bytes; gives nothing when they do not suffice. OSC
/// aligns everything to four bytes, so whatever is taken is followed by its padding, which must be zero.
class ZLOSCByteReader {
public:
    explicit ZLOSCByteReader(QByteArrayView bytes)
        : m_rest(bytes)
    {
    }

    [[nodiscard]] bool isAtEnd() const { return m_rest.isEmpty(); }
    [[nodiscard]] QByteArrayView rest() const { return m_rest; }

    template <typename Integer>
    std::optional<Integer> takeInteger()
    {
        const std::optional<QByteArrayView> bytes = take(sizeof(Integer));
        return bytes ? std::optional(qFromBigEndian<Integer>(bytes->data())) : std::nullopt;
    }

    /// The bytes before the NUL that ends a text, which must lie within the bytes.
    std::optional<QByteArrayView> takeText()
    {
        const qsizetype length = m_rest.indexOf('\0');
        return length < 0 ? std::nullopt : takePadded(length, length + 1);
    }

    std::optional<QByteArrayView> takeBlob()
    {
        const std::optional<qint32> size = takeInteger<qint32>();
        return size && *size >= 0 ? takePadded(*size, *size) : std::nullopt;
    }

    std::optional<QByteArrayView> take(qsizetype size)
    {
        if (size > m_rest.size())
            return std::nullopt;
        const QByteArrayView taken = m_rest.first(size);
        m_rest = m_rest.sliced(size);
        return taken;
    }

private:
    /// Takes `used` bytes and their padding and gives the first `size` of them.
    std::optional<QByteArrayView> takePadded(qsizetype size, qsizetype used)
    {
        if (used > m_rest.size())
            return std::nullopt;
        const std::optional<QByteArrayView> taken = take((used + 3) / 4 * 4);
        if (!taken)
            return std::nullopt;
        for (const char padding : taken->sliced(used)) {
            if (padding != '\0')
                return std::nullopt;
        }
        return taken->first(size);
    }

    QByteArrayView m_rest;
};

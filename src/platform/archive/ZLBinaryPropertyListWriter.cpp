#include "platform/archive/ZLBinaryPropertyListWriter.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>

namespace {

constexpr uchar kIntegerMarker = 0x10;
constexpr uchar kReal32Marker = 0x22;
constexpr uchar kReal64Marker = 0x23;
constexpr uchar kDataMarker = 0x40;
constexpr uchar kAsciiMarker = 0x50;
constexpr uchar kUtf16Marker = 0x60;
constexpr uchar kUidMarker = 0x80;
constexpr uchar kArrayMarker = 0xA0;
constexpr uchar kDictionaryMarker = 0xD0;

int bytesNeeded(quint64 value)
{
    return std::max(1, (int(std::bit_width(value)) + 7) / 8);
}

// The exponent of the power of two of bytes that holds the value: integers and UIDs have no other sizes.
int sizeExponent(quint64 value)
{
    return int(std::bit_width(unsigned(bytesNeeded(value) - 1)));
}

void putBigEndian(char* to, quint64 value, int bytes)
{
    for (int index = bytes - 1; index >= 0; --index, value >>= 8)
        to[index] = char(value & 0xFF);
}

void appendBigEndian(QByteArray& file, quint64 value, int bytes)
{
    char encoded[8];
    putBigEndian(encoded, value, bytes);
    file.append(encoded, bytes);
}

bool isAsciiText(QStringView text)
{
    char16_t seen = 0;
    for (const QChar unit : text)
        seen |= unit.unicode();
    return seen < 0x80;
}

}

ZLBinaryPropertyListWriter::ZLBinaryPropertyListWriter()
    : m_file("bplist00")
{
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::nextObject()
{
    m_offsets.push_back(quint64(m_file.size()));
    return Reference(m_offsets.size() - 1);
}

void ZLBinaryPropertyListWriter::appendFixed(uchar marker, quint64 value, int bytes)
{
    char encoded[9];
    encoded[0] = char(marker);
    putBigEndian(encoded + 1, value, bytes);
    m_file.append(encoded, bytes + 1);
}

// Up to 14 the count stands in the marker itself, else in an integer behind it.
void ZLBinaryPropertyListWriter::appendCounted(uchar marker, quint64 count)
{
    if (count < 0xF) {
        m_file.append(char(marker | count));
        return;
    }
    m_file.append(char(marker | 0xF));
    const int exponent = sizeExponent(count);
    appendFixed(uchar(kIntegerMarker | exponent), count, 1 << exponent);
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addBoolean(bool value)
{
    const Reference self = nextObject();
    m_file.append(value ? '\x09' : '\x08');
    return self;
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addInteger(qint64 value)
{
    const Reference self = nextObject();
    // A negative number needs all eight bytes: shorter ones have no sign.
    const int exponent = sizeExponent(quint64(value));
    appendFixed(uchar(kIntegerMarker | exponent), quint64(value), 1 << exponent);
    return self;
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addUnsignedInteger(quint64 value)
{
    if (value <= quint64(std::numeric_limits<qint64>::max()))
        return addInteger(qint64(value));
    const Reference self = nextObject();
    appendFixed(kIntegerMarker | 4, 0, 8);
    appendBigEndian(m_file, value, 8);
    return self;
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addReal(float value)
{
    const Reference self = nextObject();
    appendFixed(kReal32Marker, std::bit_cast<quint32>(value), 4);
    return self;
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addReal(double value)
{
    const Reference self = nextObject();
    appendFixed(kReal64Marker, std::bit_cast<quint64>(value), 8);
    return self;
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addData(QByteArrayView value)
{
    const Reference self = nextObject();
    appendCounted(kDataMarker, quint64(value.size()));
    m_file.append(value);
    return self;
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addText(QStringView value)
{
    const Reference self = nextObject();
    const bool ascii = isAsciiText(value);
    appendCounted(ascii ? kAsciiMarker : kUtf16Marker, quint64(value.size()));
    const qsizetype start = m_file.size();
    m_file.resize(start + value.size() * (ascii ? 1 : 2));
    char* to = m_file.data() + start;
    if (ascii)
        std::transform(value.begin(), value.end(), to, [](QChar unit) { return char(unit.unicode()); });
    else
        qToBigEndian<char16_t>(value.utf16(), value.size(), to);
    return self;
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addText(QLatin1StringView ascii)
{
    const Reference self = nextObject();
    appendCounted(kAsciiMarker, quint64(ascii.size()));
    m_file.append(ascii.data(), ascii.size());
    return self;
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addUid(quint32 value)
{
    const Reference self = nextObject();
    const int bytes = 1 << sizeExponent(value);
    appendFixed(uchar(kUidMarker | (bytes - 1)), value, bytes);
    return self;
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addArray(std::span<const Reference> elements)
{
    return addCollection(kArrayMarker, quint32(elements.size()), elements, {});
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addDictionary(
    std::span<const Reference> keys, std::span<const Reference> values)
{
    return addCollection(kDictionaryMarker, quint32(keys.size()), keys, values);
}

ZLBinaryPropertyListWriter::Reference ZLBinaryPropertyListWriter::addCollection(
    uchar marker, quint32 count, std::span<const Reference> first, std::span<const Reference> second)
{
    const Reference self = nextObject();
    m_collections.push_back({ self, count, quint32(first.size() + second.size()), marker });
    m_references.insert(m_references.end(), first.begin(), first.end());
    m_references.insert(m_references.end(), second.begin(), second.end());
    return self;
}

void ZLBinaryPropertyListWriter::appendCollections(int referenceSize)
{
    auto reference = m_references.cbegin();
    for (const Collection& collection : m_collections) {
        m_offsets[collection.self] = quint64(m_file.size());
        appendCounted(collection.marker, collection.count);
        const qsizetype start = m_file.size();
        m_file.resize(start + qsizetype(collection.referenceCount) * referenceSize);
        char* to = m_file.data() + start;
        for (quint32 index = 0; index < collection.referenceCount; ++index, to += referenceSize)
            putBigEndian(to, *reference++, referenceSize);
    }
}

void ZLBinaryPropertyListWriter::appendTrailer(
    int offsetSize, int referenceSize, Reference topObject, quint64 tableOffset)
{
    m_file.append(6, '\0');
    m_file.append(char(offsetSize));
    m_file.append(char(referenceSize));
    appendBigEndian(m_file, m_offsets.size(), 8);
    appendBigEndian(m_file, topObject, 8);
    appendBigEndian(m_file, tableOffset, 8);
}

QByteArray ZLBinaryPropertyListWriter::finish(Reference topObject)
{
    const int referenceSize = bytesNeeded(m_offsets.size() - 1);
    appendCollections(referenceSize);
    const qsizetype tableOffset = m_file.size();
    const int offsetSize = bytesNeeded(quint64(tableOffset));
    m_file.resize(tableOffset + qsizetype(m_offsets.size()) * offsetSize);
    char* to = m_file.data() + tableOffset;
    for (const quint64 offset : m_offsets) {
        putBigEndian(to, offset, offsetSize);
        to += offsetSize;
    }
    appendTrailer(offsetSize, referenceSize, topObject, quint64(tableOffset));
    return std::move(m_file);
}

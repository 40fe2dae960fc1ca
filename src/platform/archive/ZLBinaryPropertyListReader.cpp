#include "platform/archive/ZLBinaryPropertyListReader.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

using PropertyListKind = ZLBinaryPropertyListObject::Kind;

constexpr QByteArrayView kPropertyListMagic("bplist0");
constexpr quint64 kPropertyListHeaderSize = 8;
constexpr quint64 kPropertyListTrailerSize = 32;

ZLError propertyListError(const char* sourceText)
{
    return { QCoreApplication::translate("ZLBinaryPropertyListReader", sourceText) };
}

}

ZLResult<ZLBinaryPropertyListReader> ZLBinaryPropertyListReader::open(QByteArrayView file)
{
    const quint64 size = quint64(file.size());
    if (size < kPropertyListHeaderSize + kPropertyListTrailerSize || !file.startsWith(kPropertyListMagic))
        return propertyListError(
            QT_TRANSLATE_NOOP("ZLBinaryPropertyListReader", "This is not a binary property list."));

    ZLBinaryPropertyListReader reader;
    reader.m_file = reinterpret_cast<const uchar*>(file.data());
    reader.m_fileSize = size;
    // Six bytes of the trailer carry nothing; then come two sizes, the count, the top object and the table's place.
    const uchar* trailer = reader.m_file + size - kPropertyListTrailerSize;
    reader.m_offsetSize = trailer[6];
    reader.m_referenceSize = trailer[7];
    reader.m_objectCount = ZLReadBigEndian(trailer + 8, 8);
    reader.m_topObject = ZLReadBigEndian(trailer + 16, 8);
    const quint64 tableOffset = ZLReadBigEndian(trailer + 24, 8);

    const auto isIntegerSize = [](quint64 bytes) { return bytes >= 1 && bytes <= 8; };
    const quint64 tableLimit = size - kPropertyListTrailerSize;
    const bool isSound = isIntegerSize(reader.m_offsetSize) && isIntegerSize(reader.m_referenceSize)
        && tableOffset > kPropertyListHeaderSize && tableOffset <= tableLimit
        && reader.m_objectCount <= (tableLimit - tableOffset) / reader.m_offsetSize
        && reader.m_topObject < reader.m_objectCount;
    if (!isSound)
        return propertyListError(
            QT_TRANSLATE_NOOP("ZLBinaryPropertyListReader", "The property list is damaged or cut short."));
    reader.m_objectsEnd = reader.m_file + tableOffset;
    return reader;
}

ZLBinaryPropertyListObject ZLBinaryPropertyListReader::objectAt(quint64 index) const
{
    if (index >= m_objectCount)
        return {};
    const quint64 offset = ZLReadBigEndian(m_objectsEnd + index * m_offsetSize, m_offsetSize);
    if (offset < kPropertyListHeaderSize || offset >= quint64(m_objectsEnd - m_file))
        return {};
    const uchar* start = m_file + offset;
    return *start < 0x40 || *start >> 4 == 0x8 ? simpleObject(*start, start + 1) : countedObject(*start, start + 1);
}

ZLBinaryPropertyListObject ZLBinaryPropertyListReader::fixedObject(
    Object::Kind kind, quint64 bytes, const uchar* payload) const
{
    if (bytes > quint64(m_objectsEnd - payload))
        return {};
    return { kind, bytes, payload };
}

// The objects whose marker alone tells their size.
ZLBinaryPropertyListObject ZLBinaryPropertyListReader::simpleObject(uchar marker, const uchar* payload) const
{
    const uchar low = marker & 0xF;
    switch (marker >> 4) {
    case 0x0:
        if (marker == 0x00)
            return { PropertyListKind::Null, 0, payload };
        if (marker == 0x08 || marker == 0x09)
            return { marker == 0x09 ? PropertyListKind::True : PropertyListKind::False, 0, payload };
        return {};
    case 0x1:
        return low <= 4 ? fixedObject(PropertyListKind::Integer, 1ULL << low, payload) : Object();
    case 0x2:
        return low == 2 || low == 3 ? fixedObject(PropertyListKind::Real, 1ULL << low, payload) : Object();
    case 0x3:
        return low == 3 ? fixedObject(PropertyListKind::Date, 8, payload) : Object();
    case 0x8:
        return low <= 7 ? fixedObject(PropertyListKind::Uid, low + 1, payload) : Object();
    default:
        return {};
    }
}

// The objects that say how many bytes, units or elements follow: in the marker, or in an integer behind it.
ZLBinaryPropertyListObject ZLBinaryPropertyListReader::countedObject(uchar marker, const uchar* next) const
{
    quint64 count = marker & 0xF;
    if (count == 0xF) {
        if (next == m_objectsEnd || *next >> 4 != 0x1)
            return {};
        const Object length = simpleObject(*next, next + 1);
        if (length.kind != PropertyListKind::Integer || length.count > 8)
            return {};
        count = ZLReadBigEndian(length.payload, length.count);
        next = length.payload + length.count;
    }
    const auto bounded = [&](PropertyListKind kind, quint64 bytesEach) -> Object {
        // Divided rather than multiplied: a claimed count may be as large as the type.
        if (count > quint64(m_objectsEnd - next) / bytesEach)
            return {};
        return { kind, count, next };
    };
    switch (marker >> 4) {
    case 0x4:
        return bounded(PropertyListKind::Data, 1);
    case 0x5:
        return bounded(PropertyListKind::Latin1Text, 1);
    case 0x6:
        return bounded(PropertyListKind::Utf16Text, 2);
    case 0xA:
        return bounded(PropertyListKind::Array, m_referenceSize);
    case 0xC:
        return bounded(PropertyListKind::Set, m_referenceSize);
    case 0xD:
        return bounded(PropertyListKind::Dictionary, 2 * m_referenceSize);
    default:
        return {};
    }
}

quint64 ZLBinaryPropertyListReader::elementAt(const Object& collection, quint64 position) const
{
    return ZLReadBigEndian(collection.payload + position * m_referenceSize, m_referenceSize);
}

quint64 ZLBinaryPropertyListReader::valueAt(const Object& dictionary, quint64 position) const
{
    return elementAt(dictionary, dictionary.count + position);
}

ZLBinaryPropertyListObject ZLBinaryPropertyListReader::valueFor(const Object& dictionary, QLatin1StringView key) const
{
    if (dictionary.kind != PropertyListKind::Dictionary)
        return {};
    for (quint64 position = 0; position < dictionary.count; ++position) {
        if (objectAt(elementAt(dictionary, position)).isText(key))
            return objectAt(valueAt(dictionary, position));
    }
    return {};
}

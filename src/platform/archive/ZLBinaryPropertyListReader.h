#pragma once

#include "platform/ZLResult.h"
#include "platform/archive/ZLBinaryPropertyList.h"

/// Looks into a binary property list ("bplist00") without building anything: an object is found by its index and
/// decoded on request. Every offset, count and reference size is checked against the bytes, so a damaged or hostile
/// file gives Kind::Invalid, never an access outside of it. What objects make of each other (cycles, depth, expansion)
/// is the business of the code that follows the references. The bytes must outlive the reader.
class ZLBinaryPropertyListReader {
public:
    /// Fails when the bytes are no binary property list or their table of offsets does not fit into them.
    static ZLResult<ZLBinaryPropertyListReader> open(QByteArrayView file);

    [[nodiscard]] quint64 objectCount() const { return m_objectCount; }
    [[nodiscard]] quint64 topObject() const { return m_topObject; }
    /// Bytes of the whole file, the measure of what reading it may cost.
    [[nodiscard]] quint64 fileSize() const { return m_fileSize; }
    /// Bytes of one reference inside a collection.
    [[nodiscard]] quint64 referenceSize() const { return m_referenceSize; }

    /// The object of that index; Kind::Invalid when there is none or it is damaged.
    [[nodiscard]] ZLBinaryPropertyListObject objectAt(quint64 index) const;

    /// The index of an element of an array or set, or of a dictionary's key; position < count.
    [[nodiscard]] quint64 elementAt(const ZLBinaryPropertyListObject& collection, quint64 position) const;
    /// The index of the value that belongs to a dictionary's key; position < count.
    [[nodiscard]] quint64 valueAt(const ZLBinaryPropertyListObject& dictionary, quint64 position) const;
    /// The value under a key of a dictionary; Kind::Invalid when there is none.
    [[nodiscard]] ZLBinaryPropertyListObject valueFor(
        const ZLBinaryPropertyListObject& dictionary, QLatin1StringView key) const;

private:
    using Object = ZLBinaryPropertyListObject;

    Object fixedObject(Object::Kind kind, quint64 bytes, const uchar* payload) const;
    Object countedObject(uchar marker, const uchar* next) const;
    Object simpleObject(uchar marker, const uchar* payload) const;

    const uchar* m_file = nullptr;
    /// Where the table of offsets begins, and thus where the objects end.
    const uchar* m_objectsEnd = nullptr;
    quint64 m_fileSize = 0;
    quint64 m_objectCount = 0;
    quint64 m_topObject = 0;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
};

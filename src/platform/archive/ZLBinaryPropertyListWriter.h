#pragma once

#include <QByteArray>
#include <QString>

#include <span>
#include <vector>

/// Collects the objects of a binary property list and lays them out. Objects are added leaves first, each addition
/// gives the reference by which a collection names it; nothing is compared or shared here, that is for the caller to
/// decide. References and offsets take as few bytes as the finished file allows.
class ZLBinaryPropertyListWriter {
public:
    using Reference = quint32;

    ZLBinaryPropertyListWriter();

    Reference addBoolean(bool value);
    /// One, two or four bytes without a sign, or eight with it.
    Reference addInteger(qint64 value);
    /// As addInteger(); sixteen bytes for what eight with a sign cannot hold.
    Reference addUnsignedInteger(quint64 value);
    Reference addReal(float value);
    Reference addReal(double value);
    Reference addData(QByteArrayView value);
    Reference addText(QStringView value);
    Reference addText(QLatin1StringView ascii);
    Reference addUid(quint32 value);
    Reference addArray(std::span<const Reference> elements);
    /// As many keys as values.
    Reference addDictionary(std::span<const Reference> keys, std::span<const Reference> values);

    /// The file, once everything was added; the writer is spent afterwards.
    [[nodiscard]] QByteArray finish(Reference topObject);

private:
    /// References are known long before their size in bytes is: collections are laid out at the end.
    struct Collection {
        Reference self;
        quint32 count;
        quint32 referenceCount;
        uchar marker;
    };

    Reference nextObject();
    Reference addCollection(
        uchar marker, quint32 count, std::span<const Reference> first, std::span<const Reference> second);
    void appendFixed(uchar marker, quint64 value, int bytes);
    void appendCounted(uchar marker, quint64 count);
    void appendCollections(int referenceSize);
    void appendTrailer(int offsetSize, int referenceSize, Reference topObject, quint64 tableOffset);

    QByteArray m_file;
    std::vector<quint64> m_offsets;
    std::vector<Collection> m_collections;
    std::vector<Reference> m_references;
};

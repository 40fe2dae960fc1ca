#include "platform/media/mp4/ZLMP4Samples.h"

#include "platform/media/ZLBytes.h"

#include <algorithm>

namespace {

constexpr qint64 mostSamples = 10'000;

/// A table of records, each of some numbers of four bytes, behind a count at `begin`.
class Table {
public:
    Table(const ZLMediaSource& source, const ZLMP4Atom& parent, const QByteArray& type, qsizetype begin, int numbers)
        : m_bytes(ZLMP4Atoms::contents(
              source, ZLMP4Atoms::find(source, parent, { type }), begin + 4 + mostSamples * numbers * 4))
        , m_begin(begin + 4)
        , m_numbers(numbers)
        , m_count(std::min<qint64>(ZLBytes::big<quint32>(m_bytes, begin), (m_bytes.size() - m_begin) / (numbers * 4)))
    {
    }
    [[nodiscard]] qsizetype count() const { return std::max<qsizetype>(m_count, 0); }
    [[nodiscard]] quint32 number(qsizetype record, int index) const
    {
        return ZLBytes::big<quint32>(m_bytes, m_begin + (record * m_numbers + index) * 4);
    }
    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
    qsizetype m_begin;
    int m_numbers;
    qsizetype m_count;
};

QList<ZLMP4Sample> withSizes(const ZLMediaSource& source, const ZLMP4Atom& table)
{
    const Table sizes(source, table, "stsz", 8, 1);
    const auto common = ZLBytes::big<quint32>(sizes.bytes(), 4);
    const qint64 count = common ? qint64(ZLBytes::big<quint32>(sizes.bytes(), 8)) : sizes.count();
    QList<ZLMP4Sample> samples(qsizetype(std::min(count, mostSamples)));
    for (qsizetype index = 0; index < samples.size(); ++index)
        samples[index].size = common ? common : sizes.number(index, 0);
    return samples;
}

void setTimes(QList<ZLMP4Sample>& samples, const Table& times)
{
    qsizetype sample = 0;
    qint64 start = 0;
    for (qsizetype record = 0; record < times.count(); ++record) {
        const qint64 duration = times.number(record, 1);
        for (quint32 count = times.number(record, 0); count > 0 && sample < samples.size(); --count, ++sample) {
            samples[sample].start = start;
            samples[sample].duration = duration;
            start += duration;
        }
    }
    samples.resize(sample);
}

/// Where the chunks stand; each has some samples in a row.
QList<qint64> chunkOffsets(const ZLMediaSource& source, const ZLMP4Atom& table)
{
    QList<qint64> offsets;
    const Table small(source, table, "stco", 4, 1);
    for (qsizetype record = 0; record < small.count(); ++record)
        offsets.append(small.number(record, 0));
    const Table large(source, table, "co64", 4, 2);
    for (qsizetype record = 0; record < large.count(); ++record)
        offsets.append(qint64(quint64(large.number(record, 0)) << 32 | large.number(record, 1)));
    return offsets;
}

/// How many samples the chunk with this number, from 1 on, has.
quint32 samplesInChunk(const Table& counts, qsizetype& record, quint32 chunk)
{
    while (record + 1 < counts.count() && counts.number(record + 1, 0) <= chunk)
        ++record;
    return counts.count() > 0 ? counts.number(record, 1) : 0;
}

}

QList<ZLMP4Sample> ZLMP4Samples::read(const ZLMediaSource& source, const ZLMP4Atom& table)
{
    QList<ZLMP4Sample> samples = withSizes(source, table);
    setTimes(samples, Table(source, table, "stts", 4, 2));
    const Table counts(source, table, "stsc", 4, 3);
    const QList<qint64> offsets = chunkOffsets(source, table);
    qsizetype sample = 0;
    qsizetype record = 0;
    for (qsizetype chunk = 0; chunk < offsets.size(); ++chunk) {
        qint64 offset = offsets.at(chunk);
        for (quint32 left = samplesInChunk(counts, record, quint32(chunk + 1)); left > 0 && sample < samples.size();
            --left) {
            samples[sample].offset = offset;
            offset = offset < source.size() ? offset + samples.at(sample).size : source.size();
            ++sample;
        }
    }
    samples.resize(sample);
    return samples;
}

#include "platform/media/wave/ZLWaveMarkers.h"

#include "platform/media/ZLBytes.h"

#include <QHash>
#include <QStringDecoder>

#include <algorithm>

namespace {

constexpr qsizetype sizeOfPoint = 24;
constexpr qsizetype mostPointsRead = 20'000;
constexpr qsizetype mostEntriesRead = 60'000;

/// An entry of a list of texts.
struct Entry {
    QByteArray kind {};
    QByteArray contents {};
};

void appendEntries(QList<Entry>& entries, const QByteArray& list)
{
    for (qsizetype at = 4; at + 8 <= list.size() && entries.size() < mostEntriesRead;) {
        const qint64 size = std::min<qint64>(ZLBytes::little<quint32>(list, at + 4), list.size() - at - 8);
        entries.append({ list.mid(at, 4), list.mid(at + 8, size) });
        at += 8 + size + (size & 1);
    }
}

/// Those of all lists of texts, as far as these are no larger together than a single reading may be.
QList<Entry> entriesOf(const ZLMediaSource& source, const ZLWaveChunks& chunks)
{
    QList<Entry> entries;
    qint64 left = ZLMediaSource::largestReading;
    for (const ZLWaveChunk& chunk : chunks.list) {
        if (chunk.listKind == "adtl" && left > 0)
            appendEntries(entries, source.read(chunk.begin(), std::min(chunk.size, left)));
        if (chunk.listKind == "adtl")
            left -= chunk.size;
    }
    return entries;
}

/// Labels have no stated encoding: UTF-8 where the bytes are that, else the one that older programs wrote.
QString text(QByteArray bytes)
{
    if (const qsizetype end = bytes.indexOf('\0'); end >= 0)
        bytes.truncate(end);
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString decoded = decoder.decode(bytes);
    return decoder.hasError() ? QString::fromLatin1(bytes) : decoded;
}

QHash<quint32, QString> readLabels(const ZLMediaSource& source, const ZLWaveChunks& chunks)
{
    QHash<quint32, QString> labels;
    const QList<Entry> entries = entriesOf(source, chunks);
    for (const Entry& entry : entries) {
        const auto id = ZLBytes::little<quint32>(entry.contents, 0);
        if (entry.kind == "labl" && !labels.contains(id))
            labels.insert(id, text(entry.contents.mid(4)));
    }
    return labels;
}

QByteArray chunk(const QByteArray& id, const QByteArray& contents)
{
    const QByteArray padding(contents.size() & 1, '\0');
    return id + ZLBytes::fromLittle(quint32(contents.size())) + contents + padding;
}

/// A marker stands at a sample, and never behind the time of its chapter.
quint32 sampleAt(qint64 milliseconds, quint32 rate)
{
    return quint32(milliseconds * rate / 1000);
}

QByteArray point(quint32 id, quint32 sample)
{
    return ZLBytes::fromLittle(id) + ZLBytes::fromLittle(sample) + "data" + QByteArray(8, '\0')
        + ZLBytes::fromLittle(sample);
}

}

bool ZLWaveMarkers::isOfMarkers(const ZLWaveChunk& chunk)
{
    return chunk.id == "cue " || chunk.listKind == "adtl";
}

bool ZLWaveMarkers::haveMoreThanLabels(const ZLMediaSource& source, const ZLWaveChunks& chunks)
{
    const QList<Entry> entries = entriesOf(source, chunks);
    return std::ranges::any_of(entries, [](const Entry& entry) { return entry.kind != "labl"; });
}

ZLMediaChapters ZLWaveMarkers::read(const ZLMediaSource& source, const ZLWaveChunks& chunks, const Sound& sound)
{
    const ZLWaveChunk* cue = chunks.find("cue ");
    if (!cue || sound.rate == 0)
        return {};
    const QHash<quint32, QString> labels = readLabels(source, chunks);
    const QByteArray points = source.read(cue->begin(), std::min(cue->size, 4 + mostPointsRead * sizeOfPoint));
    ZLMediaChapters chapters;
    for (qsizetype at = 4; at + sizeOfPoint <= points.size(); at += sizeOfPoint) {
        const auto sample = ZLBytes::little<quint32>(points, at + 20);
        chapters.append({ .start = qRound64(double(sample) * 1000.0 / sound.rate),
            .title = labels.value(ZLBytes::little<quint32>(points, at)) });
    }
    std::ranges::stable_sort(chapters, {}, &ZLMediaChapter::start);
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const qint64 next = index + 1 < chapters.size() ? chapters.at(index + 1).start : sound.length;
        chapters[index].end = std::max(chapters.at(index).start, next);
    }
    return chapters;
}

QByteArray ZLWaveMarkers::bytes(const ZLMediaChapters& chapters, quint32 rate)
{
    if (chapters.isEmpty())
        return {};
    QByteArray points = ZLBytes::fromLittle(quint32(chapters.size()));
    QByteArray labels = "adtl";
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const auto id = quint32(index + 1);
        points += point(id, sampleAt(chapters.at(index).start, rate));
        labels += chunk("labl", ZLBytes::fromLittle(id) + chapters.at(index).title.toUtf8() + '\0');
    }
    return chunk("cue ", points) + chunk("LIST", labels);
}

#include "listening/ZLListeningData.h"

#include <QByteArray>
#include <QVariantList>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

const QString spansKey = QStringLiteral("Spans");
const QString startKey = QStringLiteral("Start");
const QString intervalKey = QStringLiteral("Interval");
const QString framesKey = QStringLiteral("Frames");
constexpr qsizetype bytesPerFrame = 4;
/// More stops of a clock than any show has.
constexpr qsizetype mostSpans = 10000;

bool makesSense(const ZLListeningSpan& span)
{
    constexpr double wanted = ZLSoundFingerprint::SecondsPerFrame;
    // What is no number is in no range.
    return !span.frames.empty() && span.start >= 0.0
        && std::abs(span.interval / wanted - 1.0) <= ZLListeningData::WorstDrift
        && span.end() <= ZLListeningData::LongestShow;
}

QByteArray bytesOf(const std::vector<std::uint32_t>& frames)
{
    QByteArray bytes(qsizetype(frames.size()) * bytesPerFrame, Qt::Uninitialized);
    qToBigEndian<quint32>(frames.data(), qsizetype(frames.size()), bytes.data());
    return bytes;
}

std::vector<std::uint32_t> framesIn(const QVariant& stored)
{
    // A text is none, whatever its letters would be as bytes.
    const QByteArray bytes = stored.typeId() == QMetaType::QByteArray ? stored.toByteArray() : QByteArray();
    std::vector<std::uint32_t> frames(size_t(bytes.size() / bytesPerFrame));
    qFromBigEndian<quint32>(bytes.constData(), qsizetype(frames.size()), frames.data());
    return frames;
}

ZLListeningSpan spanIn(const QVariantMap& stored)
{
    return { stored.value(startKey).toDouble(), stored.value(intervalKey).toDouble(),
        framesIn(stored.value(framesKey)) };
}

QVariantMap storedSpan(const ZLListeningSpan& span)
{
    return { { startKey, span.start }, { intervalKey, span.interval }, { framesKey, bytesOf(span.frames) } };
}

/// Of the longest span, since one grid cannot fit all.
double zeroThatFits(const std::vector<ZLListeningSpan>& spans)
{
    constexpr double step = ZLSoundFingerprint::SecondsPerFrame;
    const auto longest =
        std::ranges::max_element(spans, {}, [](const ZLListeningSpan& span) { return span.frames.size(); });
    // In its middle, so that a clock that goes wrong is as far off at one end as at the other.
    const auto framesBefore = longest->frames.size() / 2;
    const double middle = longest->start + longest->interval * double(framesBefore);
    // Rounding may bring it below by next to nothing.
    return std::max(0.0, std::ceil(middle / step) * step - middle);
}

}

ZLListeningData ZLListeningData::fromStored(const QVariant& stored)
{
    ZLListeningData data;
    const QVariantList spans = stored.toMap().value(spansKey).toList();
    for (const QVariant& span : spans.first(std::min(spans.size(), mostSpans)))
        data.add(spanIn(span.toMap()));
    return data;
}

QVariant ZLListeningData::stored() const
{
    if (m_spans.empty())
        return {};
    QVariantList spans;
    for (const ZLListeningSpan& span : m_spans)
        spans.append(storedSpan(span));
    return QVariantMap { { spansKey, spans } };
}

QVariant ZLListeningData::begun()
{
    return QVariantMap { { spansKey, QVariantList() } };
}

QVariantMap ZLListeningData::adopted(QVariantMap others, const QVariantMap& own)
{
    if (own.contains(Key) && !others.contains(Key))
        others.insert(Key, own.value(Key));
    return others;
}

void ZLListeningData::add(ZLListeningSpan span)
{
    if (!makesSense(span))
        return;
    forgetFrom(span.start);
    m_spans.push_back(std::move(span));
}

bool ZLListeningData::has(const ZLListeningSpan& span) const
{
    // The place of a span becomes known better while it goes on.
    constexpr double samePlace = 0.5;
    const auto isSame = [](std::uint32_t wanted, std::uint32_t own) {
        return wanted == own || wanted == ZLSoundFingerprint::Nothing;
    };
    return std::ranges::any_of(m_spans, [&](const ZLListeningSpan& own) {
        return std::abs(own.start - span.start) <= samePlace && own.frames.size() >= span.frames.size()
            && std::equal(span.frames.begin(), span.frames.end(), own.frames.begin(), isSame);
    });
}

void ZLListeningData::forgetFrom(double reading)
{
    while (!m_spans.empty() && m_spans.back().end() > reading) {
        ZLListeningSpan& last = m_spans.back();
        // A frame that lasts beyond by its rounding alone stays.
        const double kept = std::floor((reading - last.start) / last.interval + 0.5);
        if (kept >= 1.0) {
            last.frames.resize(std::min(size_t(kept), last.frames.size()));
            return;
        }
        m_spans.pop_back();
    }
}

void ZLListeningData::insertTime(double reading, double seconds)
{
    for (ZLListeningSpan& span : std::exchange(m_spans, {})) {
        const double before =
            std::clamp(std::ceil((reading - span.start) / span.interval), 0.0, double(span.frames.size()));
        const auto cut = span.frames.begin() + std::ptrdiff_t(before);
        add({ span.start, span.interval, { span.frames.begin(), cut } });
        add({ span.start + before * span.interval + seconds, span.interval, { cut, span.frames.end() } });
    }
}

void ZLListeningData::removeTime(double reading, double seconds)
{
    for (ZLListeningSpan& span : std::exchange(m_spans, {})) {
        // What is heard in between was heard in no other time.
        if (span.start >= reading + seconds - span.interval)
            span.start -= seconds;
        add(std::move(span));
    }
}

ZLHeardShow ZLListeningData::heardShow() const
{
    if (m_spans.empty())
        return {};
    constexpr double step = ZLSoundFingerprint::SecondsPerFrame;
    ZLHeardShow show;
    show.zero = zeroThatFits(m_spans);
    auto& frames = show.fingerprint.frames;
    for (const ZLListeningSpan& span : m_spans) {
        const auto first = size_t(std::ceil((span.start + show.zero) / step - 0.5));
        const auto end = size_t(std::ceil((span.end() + show.zero) / step - 0.5));
        frames.resize(std::max(end, frames.size()), ZLSoundFingerprint::Nothing);
        for (size_t index = first; index < end; ++index) {
            const double nearest = std::round((double(index) * step - show.zero - span.start) / span.interval);
            frames[index] = span.frames[std::min(size_t(std::max(nearest, 0.0)), span.frames.size() - 1)];
        }
    }
    return show;
}

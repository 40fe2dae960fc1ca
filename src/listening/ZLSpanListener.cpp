#include "listening/ZLSpanListener.h"

#include <algorithm>
#include <cmath>
#include <span>

void ZLSpanListener::begin(double hostTime)
{
    m_beginning = hostTime;
    m_hearing.reset();
    m_spans.clear();
}

void ZLSpanListener::end()
{
    m_beginning.reset();
    m_hearing.reset();
}

void ZLSpanListener::hear(const ZLHeardBlock& block, double reading)
{
    if (!isListening())
        return;
    const double early = std::max(0.0, (*m_beginning - block.hostTime) * ZLSoundInput::SamplesPerSecond);
    if (early >= double(block.samples.size()))
        return;
    if (!m_hearing || m_hearing->clock.isLost())
        beginSpan();
    const auto skipped = size_t(m_hearing->sampleCount > 0 ? 0.0 : std::ceil(early));
    const std::span samples = std::span(block.samples).subspan(skipped);
    m_hearing->clock.note(m_hearing->sampleCount, reading + double(skipped) / ZLSoundInput::SamplesPerSecond);
    m_hearing->sampleCount += std::int64_t(samples.size());
    m_hearing->fingerprinter.hear(samples);
    takeFrames();
}

void ZLSpanListener::beginSpan()
{
    m_hearing = std::make_unique<Hearing>();
    m_spans.emplace_back();
}

void ZLSpanListener::takeFrames()
{
    ZLListeningSpan& span = m_spans.back();
    const auto frames = m_hearing->fingerprinter.takeFrames();
    span.frames.insert(span.frames.end(), frames.begin(), frames.end());
    // A start of the clock is where it is; that the line goes a little below it is uncertainty.
    span.start = std::max(0.0, m_hearing->clock.timeOf(0));
    span.interval = ZLSoundFingerprint::SecondsPerFrame * (1.0 + m_hearing->clock.drift());
}

#include "platform/media/decoding/ZLResampler.h"

#include <soxr.h>

namespace {

/// More than the library keeps back.
constexpr size_t spareSamples = 8192;

}

ZLResampler::ZLResampler(double fromRate, double toRate)
    : m_ratio(toRate / fromRate)
{
    const soxr_io_spec_t format = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_LQ, 0);
    soxr_error_t error = nullptr;
    m_soxr = soxr_create(fromRate, toRate, 1, &error, &format, &quality, nullptr);
    if (error) {
        soxr_delete(m_soxr);
        m_soxr = nullptr;
    }
}

ZLResampler::~ZLResampler()
{
    soxr_delete(m_soxr);
}

std::span<const float> ZLResampler::resampled(std::span<const float> samples)
{
    return process(samples.data(), samples.size());
}

std::span<const float> ZLResampler::rest()
{
    return process(nullptr, 0);
}

std::span<const float> ZLResampler::process(const float* samples, size_t count)
{
    m_output.resize(size_t(double(count) * m_ratio) + spareSamples);
    size_t used = 0;
    size_t made = 0;
    if (soxr_process(m_soxr, samples, count, &used, m_output.data(), m_output.size(), &made))
        made = 0;
    return { m_output.data(), made };
}

#pragma once

#include <memory>
#include <span>
#include <vector>

struct soxr;

/// Turns the samples of one channel into samples at another rate, part by part. It holds libsoxr.
class ZLResampler {
public:
    ZLResampler(double fromRate, double toRate);
    ~ZLResampler();
    ZLResampler(const ZLResampler&) = delete;
    ZLResampler& operator=(const ZLResampler&) = delete;

    [[nodiscard]] bool isValid() const { return m_soxr != nullptr; }
    /// What is ready so far; valid until the next call.
    [[nodiscard]] std::span<const float> resampled(std::span<const float> samples);
    /// What is still to come at the end of the sound.
    [[nodiscard]] std::span<const float> rest();

private:
    [[nodiscard]] std::span<const float> process(const float* samples, size_t count);

    double m_ratio;
    soxr* m_soxr = nullptr;
    std::vector<float> m_output {};
};

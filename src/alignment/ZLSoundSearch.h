#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

/// Where a short sound may be in a long one.
struct ZLFoundSound {
    /// Of its beginning, in samples.
    double place = 0.0;
    /// From 0 to 1: how much of what is heard there is that sound.
    double likeness = 0.0;
};

/// Looks for a short sound, sample by sample, in a long one that arrives piece by piece. How loud it is and how a room
/// shifted its tones against each other make little difference.
class ZLSoundSearch {
public:
    /// What is less like it may be anything. A beep that is as loud as the speech around it reaches 0.6.
    static constexpr double LeastLikeness = 0.45;
    static constexpr std::size_t MostSamples = 8192;

    /// Of `wanted`, MostSamples count.
    explicit ZLSoundSearch(std::span<const float> wanted);
    ~ZLSoundSearch();
    ZLSoundSearch(const ZLSoundSearch&) = delete;
    ZLSoundSearch& operator=(const ZLSoundSearch&) = delete;

    /// At the rate of `wanted`. What is no number counts as silence.
    void hear(std::span<const float> samples);
    /// When nothing more is heard: the first place that is about as like as the best one.
    [[nodiscard]] std::optional<ZLFoundSound> firstPlace();

private:
    struct Transform;

    /// At so many places from the first sample on.
    void searchBlock(std::size_t places);
    void note(const ZLFoundSound& found);

    std::unique_ptr<Transform> m_transform;
    std::size_t m_length;
    /// What was heard and is not searched yet, from the sample m_begin on.
    std::vector<float> m_samples;
    double m_begin = 0.0;
    /// The best ones, each much farther from the next than the sound is long.
    std::vector<ZLFoundSound> m_found;
};

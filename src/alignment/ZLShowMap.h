#pragma once

#include "alignment/ZLSoundAlignment.h"

/// What became of a moment of the show.
enum class ZLMomentState {
    Kept, ///< It is in the finished file.
    Seam, ///< It was cut out, but some of what followed it is there.
    Cut, ///< It was cut out with all that followed it, up to the next moment that is asked for.
    NotFound, ///< Nothing says where it is.
};

struct ZLMappedMoment {
    ZLMomentState state = ZLMomentState::NotFound;
    /// Seconds from the beginning of the finished file; for what was cut out, the seam. Without meaning for NotFound.
    double fileTime = 0.0;
    /// From 0 to 1, how sure the state and the time are.
    double confidence = 0.0;
};

/// Carries moments of a show over to a finished file, by the pieces that both share.
class ZLShowMap {
public:
    explicit ZLShowMap(ZLSoundAlignment alignment);

    /// Where the moment is that lies `showTime` seconds after the beginning of what was heard. What belongs to it
    /// reaches to `spanEnd`.
    [[nodiscard]] ZLMappedMoment place(double showTime, double spanEnd) const;

    [[nodiscard]] const ZLSoundAlignment& alignment() const { return m_alignment; }

private:
    [[nodiscard]] ZLMappedMoment placeBetween(
        const ZLSoundPiece* former, const ZLSoundPiece* next, double showTime, double spanEnd) const;
    [[nodiscard]] double surenessOf(const ZLSoundPiece& piece, double showTime) const;
    [[nodiscard]] bool isPartOfSpanKept(double showTime, double spanEnd) const;

    ZLSoundAlignment m_alignment;
};

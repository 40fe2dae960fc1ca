#pragma once

#include "platform/media/ZLMediaFormat.h"

/// WAV, also with 64-bit sizes: chapters as markers with labels.
class ZLWaveFormat final : public ZLMediaFormat {
public:
    [[nodiscard]] bool isFormOf(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLMediaContents> read(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLFilePieces> withChapters(
        const ZLMediaSource& source, const ZLMediaChapters& chapters) const override;
};

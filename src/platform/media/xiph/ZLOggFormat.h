#pragma once

#include "platform/media/ZLMediaFormat.h"

/// Ogg Vorbis and Opus: chapters among the texts of the second packet.
class ZLOggFormat final : public ZLMediaFormat {
public:
    [[nodiscard]] bool isFormOf(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLMediaContents> read(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLFilePieces> withChapters(
        const ZLMediaSource& source, const ZLMediaChapters& chapters) const override;
};

#pragma once

#include "platform/media/ZLMediaFormat.h"

/// MP3: chapters in the ID3v2 tag at the beginning.
class ZLMP3Format final : public ZLMediaFormat {
public:
    [[nodiscard]] bool isFormOf(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLMediaContents> read(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLFilePieces> withChapters(
        const ZLMediaSource& source, const ZLMediaChapters& chapters) const override;
};

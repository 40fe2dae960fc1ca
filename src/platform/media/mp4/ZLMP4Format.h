#pragma once

#include "platform/media/ZLMediaFormat.h"

/// M4A, M4B, MP4: chapters as a text track and as a list, which different players read.
class ZLMP4Format final : public ZLMediaFormat {
public:
    [[nodiscard]] bool isFormOf(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLMediaContents> read(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLFilePieces> withChapters(
        const ZLMediaSource& source, const ZLMediaChapters& chapters) const override;
};

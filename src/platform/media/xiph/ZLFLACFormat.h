#pragma once

#include "platform/media/ZLMediaFormat.h"

/// FLAC: chapters among the texts of the block of comments.
class ZLFLACFormat final : public ZLMediaFormat {
public:
    [[nodiscard]] bool isFormOf(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLMediaContents> read(const ZLMediaSource& source) const override;
    [[nodiscard]] ZLResult<ZLFilePieces> withChapters(
        const ZLMediaSource& source, const ZLMediaChapters& chapters) const override;
};

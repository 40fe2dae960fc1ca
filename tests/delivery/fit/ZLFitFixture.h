#pragma once

#include "alignment/ZLSoundAlignment.h"
#include "delivery/fit/ZLFit.h"
#include "support/ZLDocumentFixture.h"

/// A show of 100 s of which 40 to 60 s were cut out, behind an intro of 5 s.
class ZLFitFixture : public ZLDocumentFixture {
protected:
    [[nodiscard]] static ZLSoundAlignment cutShow()
    {
        return { { { 0.0, 5.0, 40.0, 1.0, 0.1 }, { 60.0, 45.0, 40.0, 1.0, 0.1 } }, {}, 100.0, 85.0 };
    }
    [[nodiscard]] ZLFit fitOf(const ZLSoundAlignment& alignment, double zero = 0.0)
    {
        return ZLFit::of(ZLFitNotes::marksOf(chapters().allChapters(), m_document.extras()), alignment, zero);
    }
    [[nodiscard]] QList<bool> ticks()
    {
        QList<bool> ticks;
        for (const auto& chapter : chapters().allChapters())
            ticks.append(chapter->isEnabled());
        return ticks;
    }
    /// One kept, one cut with all of its span, one of which the end is left, one kept, one behind all that was heard.
    void addMarks()
    {
        addChapterAt(10.0, QStringLiteral("Kept"));
        addChapterAt(42.0, QStringLiteral("Cut"));
        addChapterAt(50.0, QStringLiteral("Seam"));
        addChapterAt(70.0, QStringLiteral("Later"));
        addChapterAt(200.0, QStringLiteral("Unheard"));
    }
};

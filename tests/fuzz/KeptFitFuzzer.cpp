// Any document whose fits are read: what is taken must carry every moment over to a time that can be shown, and come
// back as it was kept.
#include "alignment/ZLShowMap.h"
#include "delivery/fit/ZLKeptFit.h"
#include "document/ZLDocumentFile.h"
#include "document/shared/ZLChapterMoves.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void requireUsable(const ZLKeptFit& fit)
{
    const auto again = ZLKeptFit::of(fit.stored());
    require(again && again->stored() == fit.stored());
    const ZLShowMap map(fit.alignment);
    for (const double time : { -1e300, -1.0, 0.0, 1.0, 30.0, 3600.0, 1e300, std::nan("") }) {
        const ZLMappedMoment place = map.place(time + fit.zero, time + fit.zero + 60.0);
        require(std::isfinite(place.fileTime) && place.confidence >= 0.0 && place.confidence <= 1.0);
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const auto contents = ZLDocumentFile::decode(QByteArrayView(bytes, qsizetype(size)));
    if (!contents)
        return 0;
    const QVariantList fits = contents.value().extras.value(ZLChapterMoves::FitsKey).toList();
    for (const QVariant& stored : fits) {
        if (const auto fit = ZLKeptFit::of(stored))
            requireUsable(*fit);
    }
    const QVariantMap notes = contents.value().extras.value(ZLDocumentExtras::ChapterNotesKey).toMap();
    for (const QVariant& ofChapter : notes)
        require(std::isfinite(ZLChapterMoves::in(ofChapter.toMap())));
    return 0;
}

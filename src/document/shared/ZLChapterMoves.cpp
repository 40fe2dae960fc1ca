#include "document/shared/ZLChapterMoves.h"

#include "document/shared/ZLRecorderFiles.h"
#include "listening/ZLListeningData.h"
#include "model/ZLStoredValue.h"

#include <cmath>

namespace {

const QString movedKey = QStringLiteral("Moved");
/// What is left of moves there and back. No ear tells it.
constexpr double noMove = 1.0e-6;

/// The file may come from anywhere.
double secondsIn(const QVariant& stored)
{
    const double seconds = ZLStoredValue::number(stored);
    return std::isfinite(seconds) ? seconds : 0.0;
}

}

bool ZLChapterMoves::areRemembered(const ZLDocumentExtras& extras)
{
    return extras.value(ZLListeningData::Key).isValid() || extras.value(FitsKey).isValid()
        || extras.value(ZLRecorderFiles::Key).isValid();
}

double ZLChapterMoves::of(const ZLDocumentExtras& extras, const QString& uuid)
{
    return secondsIn(extras.ofChapter(uuid, movedKey));
}

double ZLChapterMoves::in(const QVariantMap& notes)
{
    return secondsIn(notes.value(movedKey));
}

void ZLChapterMoves::add(ZLDocumentExtras& extras, const QString& uuid, double seconds)
{
    if (seconds == 0.0 || !areRemembered(extras))
        return;
    const double moved = of(extras, uuid) + seconds;
    extras.changeOfChapter(uuid, movedKey, std::abs(moved) < noMove ? QVariant() : QVariant(moved));
}

void ZLChapterMoves::addWithClock(ZLDocumentExtras& extras, const QString& uuid, double seconds)
{
    if (extras.value(ZLListeningData::Key).isValid())
        add(extras, uuid, seconds);
}

#include "delivery/fit/ZLKeptFits.h"

#include "document/shared/ZLChapterMoves.h"
#include "model/ZLStoredValue.h"

#include <QVariantList>

#include <algorithm>

namespace {

const QString followedKey = QStringLiteral("FittedTo");

}

QList<ZLKeptFit> ZLKeptFits::in(const ZLDocumentExtras& extras)
{
    QList<ZLKeptFit> fits;
    const QVariantList stored = extras.value(ZLChapterMoves::FitsKey).toList().mid(0, MostFits);
    for (const QVariant& entry : stored) {
        if (auto fit = ZLKeptFit::of(entry))
            fits.append(std::move(*fit));
    }
    return fits;
}

std::optional<ZLKeptFit> ZLKeptFits::ofFile(
    const ZLDocumentExtras& extras, const QString& name, std::optional<double> length)
{
    const QList<ZLKeptFit> fits = in(extras);
    const auto found = std::ranges::find_if(
        fits, [&](const ZLKeptFit& fit) { return length ? fit.isOf(name, *length) : fit.fileName == name; });
    return found == fits.cend() ? std::nullopt : std::optional(*found);
}

ZLKeptFit ZLKeptFits::keep(ZLDocumentExtras& extras, ZLKeptFit fit)
{
    const QList<ZLKeptFit> former = in(extras);
    QVariantList stored;
    for (const ZLKeptFit& other : former) {
        if (other.isOf(fit.fileName, fit.alignment.fileLength))
            fit.identifier = other.identifier;
        else if (stored.size() + 1 < MostFits)
            stored.append(other.stored());
    }
    stored.prepend(fit.stored());
    extras.keep(ZLChapterMoves::FitsKey, stored);
    return fit;
}

QString ZLKeptFits::followed(const ZLDocumentExtras& extras)
{
    return ZLStoredValue::text(extras.value(followedKey));
}

void ZLKeptFits::follow(ZLDocumentExtras& extras, const QString& identifier)
{
    extras.change(followedKey, identifier);
}

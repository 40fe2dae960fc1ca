#include "delivery/fit/ZLKeptFit.h"

#include "model/ZLStoredValue.h"

#include <QVariantList>

#include <algorithm>
#include <cmath>

namespace {

const QString identifierKey = QStringLiteral("Id");
const QString fileKey = QStringLiteral("File");
const QString madeKey = QStringLiteral("Made");
const QString zeroKey = QStringLiteral("Zero");
const QString showLengthKey = QStringLiteral("ShowLength");
const QString fileLengthKey = QStringLiteral("FileLength");
const QString piecesKey = QStringLiteral("Pieces");
const QString movedPiecesKey = QStringLiteral("MovedPieces");
const QString showStartKey = QStringLiteral("ShowStart");
const QString fileStartKey = QStringLiteral("FileStart");
const QString lengthKey = QStringLiteral("Length");
const QString rateKey = QStringLiteral("Rate");
const QString differingKey = QStringLiteral("Differing");
const QString elsewhereKey = QStringLiteral("Elsewhere");
const QString beginDoubtKey = QStringLiteral("BeginDoubt");
const QString endDoubtKey = QStringLiteral("EndDoubt");
const QString beginRepeatsKey = QStringLiteral("BeginRepeats");
const QString endRepeatsKey = QStringLiteral("EndRepeats");

/// A year. Also keeps what is computed of the numbers finite.
constexpr double mostSeconds = 366.0 * 24.0 * 3600.0;
constexpr double leastRate = 0.9;
constexpr double mostRate = 1.1;
constexpr double leastDoubt = 0.001;
constexpr double mostDoubt = 60.0;

bool isMoment(double seconds)
{
    return seconds >= 0.0 && seconds <= mostSeconds;
}

QVariantList storedPieces(const std::vector<ZLSoundPiece>& pieces)
{
    QVariantList stored;
    for (const ZLSoundPiece& piece : pieces) {
        stored.append(QVariantMap { { showStartKey, piece.showStart }, { fileStartKey, piece.fileStart },
            { lengthKey, piece.length }, { rateKey, piece.rate }, { differingKey, piece.differingShare },
            { elsewhereKey, piece.shareElsewhere }, { beginDoubtKey, piece.beginDoubt },
            { endDoubtKey, piece.endDoubt }, { beginRepeatsKey, piece.beginRepeats },
            { endRepeatsKey, piece.endRepeats } });
    }
    return stored;
}

/// Fits of before do not have all of them.
double numberIn(const QVariantMap& entries, const QString& key, double otherwise)
{
    return entries.contains(key) ? ZLStoredValue::number(entries.value(key)) : otherwise;
}

bool isDoubt(double seconds)
{
    return seconds >= leastDoubt && seconds <= mostDoubt;
}

std::optional<ZLSoundPiece> pieceIn(const QVariant& stored)
{
    const QVariantMap entries = stored.toMap();
    const ZLSoundPiece piece { ZLStoredValue::number(entries.value(showStartKey)),
        ZLStoredValue::number(entries.value(fileStartKey)), ZLStoredValue::number(entries.value(lengthKey)),
        ZLStoredValue::number(entries.value(rateKey)), ZLStoredValue::number(entries.value(differingKey)),
        numberIn(entries, elsewhereKey, ZLSoundPiece().shareElsewhere),
        numberIn(entries, beginDoubtKey, ZLSoundPiece().beginDoubt),
        numberIn(entries, endDoubtKey, ZLSoundPiece().endDoubt), numberIn(entries, beginRepeatsKey, 0.0),
        numberIn(entries, endRepeatsKey, 0.0) };
    const bool makesSense = isMoment(piece.showStart) && isMoment(piece.fileStart) && isMoment(piece.length)
        && piece.length > 0.0 && piece.rate >= leastRate && piece.rate <= mostRate && piece.differingShare >= 0.0
        && piece.differingShare <= 1.0 && piece.shareElsewhere >= 0.0 && piece.shareElsewhere <= 1.0
        && isDoubt(piece.beginDoubt) && isDoubt(piece.endDoubt) && isMoment(piece.beginRepeats)
        && isMoment(piece.endRepeats);
    return makesSense ? std::optional(piece) : std::nullopt;
}

/// Nothing when one of them makes no sense.
std::optional<std::vector<ZLSoundPiece>> piecesIn(const QVariant& stored)
{
    const QVariantList list = stored.toList();
    if (list.size() > ZLKeptFit::MostPieces)
        return std::nullopt;
    std::vector<ZLSoundPiece> pieces;
    for (const QVariant& entry : list) {
        const auto piece = pieceIn(entry);
        if (!piece)
            return std::nullopt;
        pieces.push_back(*piece);
    }
    return pieces;
}

/// In the order of both, as everything that works with them takes for granted.
bool areInOrder(const std::vector<ZLSoundPiece>& pieces)
{
    return std::ranges::is_sorted(pieces, {}, &ZLSoundPiece::showStart)
        && std::ranges::is_sorted(pieces, {}, &ZLSoundPiece::fileStart);
}

}

bool ZLKeptFit::isOf(const QString& name, double length) const
{
    return fileName == name && std::abs(alignment.fileLength - length) < ToleranceOfLength;
}

QVariantMap ZLKeptFit::stored() const
{
    return { { identifierKey, identifier }, { fileKey, fileName }, { madeKey, madeAt }, { zeroKey, zero },
        { showLengthKey, alignment.showLength }, { fileLengthKey, alignment.fileLength },
        { piecesKey, storedPieces(alignment.pieces) }, { movedPiecesKey, storedPieces(alignment.movedPieces) } };
}

std::optional<ZLKeptFit> ZLKeptFit::of(const QVariant& stored)
{
    const QVariantMap entries = stored.toMap();
    const auto pieces = piecesIn(entries.value(piecesKey));
    const auto movedPieces = piecesIn(entries.value(movedPiecesKey));
    if (!pieces || !movedPieces || !areInOrder(*pieces))
        return std::nullopt;
    ZLKeptFit fit;
    fit.identifier = ZLStoredValue::text(entries.value(identifierKey));
    fit.fileName = ZLStoredValue::text(entries.value(fileKey));
    fit.madeAt = ZLStoredValue::number(entries.value(madeKey));
    fit.zero = ZLStoredValue::number(entries.value(zeroKey));
    fit.alignment = { *pieces, *movedPieces, ZLStoredValue::number(entries.value(showLengthKey)),
        ZLStoredValue::number(entries.value(fileLengthKey)) };
    const bool makesSense = !fit.identifier.isEmpty() && !fit.fileName.isEmpty() && std::abs(fit.zero) <= mostSeconds
        && isMoment(fit.alignment.showLength) && isMoment(fit.alignment.fileLength) && fit.alignment.isTheShow();
    return makesSense ? std::optional(fit) : std::nullopt;
}

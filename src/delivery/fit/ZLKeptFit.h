#pragma once

#include "alignment/ZLSoundAlignment.h"
#include "platform/ZLResult.h"

#include <QString>
#include <QVariantMap>

#include <optional>

/// Where a show is in one finished file, kept with the document: chapters can be carried over by it at any time,
/// without the sound.
struct ZLKeptFit {
    /// No file has more.
    static constexpr qsizetype MostPieces = 50'000;
    /// Chapters that are written into a file leave its length as it is, but players count the ends of lossy files
    /// differently.
    static constexpr double ToleranceOfLength = 0.5;

    /// Made anew for each finished file.
    QString identifier {};
    /// Without its folder: a document that is handed on says nothing of the disk on which it was made.
    QString fileName {};
    /// Seconds since the beginning of 1970.
    double madeAt = 0.0;
    /// See ZLFit.
    double zero = 0.0;
    ZLSoundAlignment alignment {};

    /// Whether it is about this file, as far as its name and length, in seconds, tell.
    [[nodiscard]] bool isOf(const QString& name, double length) const;

    [[nodiscard]] QVariantMap stored() const;
    /// Nothing for what makes no sense; a document may come from anywhere.
    [[nodiscard]] static std::optional<ZLKeptFit> of(const QVariant& stored);
};

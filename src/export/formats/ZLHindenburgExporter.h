#pragma once

#include "export/ZLExporter.h"

/// Puts the enabled chapters as markers into an existing Hindenburg session, which keeps all else that it holds. This
/// is plain text surgery, since a session has to come back byte for byte; new markers are numbered after the highest.
class ZLHindenburgExporter final : public ZLExporter {
public:
    [[nodiscard]] static ZLExportFormat format();

    /// What is no session at all: nothing, text in another encoding than UTF-8, or the end of a session and no more.
    [[nodiscard]] std::optional<ZLExportAlert> alertFor(const ZLExportInput& input) const override;

    /// Fails for what alertFor() names, for markers without an end, and where the rewritten session would become
    /// unreasonably large. Takes time in proportion to what it reads and writes, whatever the session holds.
    [[nodiscard]] ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override;

    [[nodiscard]] QStringList advice(const ZLExportInput& input) const override;

    [[nodiscard]] QString reasonNothingIsInserted(const ZLExportInput& input) const override;

    /// Seconds in single precision with three decimals, as "12.346".
    [[nodiscard]] static QByteArray markerTime(const ZLChapter& chapter);
    /// Whether a session has a place where markers can go.
    [[nodiscard]] static bool takesMarkers(const QByteArray& session);

    /// A session larger than this many bytes is not written.
    static constexpr qsizetype MostSessionBytes = qsizetype(1) << 30;
};

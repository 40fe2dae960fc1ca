#pragma once

#include "platform/ZLWorkProgress.h"
#include "platform/media/ZLFilePieces.h"
#include "platform/media/ZLMediaSource.h"

/// Writes the pieces of a new file, from its beginning. Whole blocks of the source that stay whole blocks are copied by
/// the kernel where it can, and shared where the file system can; everything else passes through one small buffer.
class ZLPieceWriter {
public:
    ZLPieceWriter(const ZLMediaSource& source, int descriptor, ZLWorkProgress& progress);

    [[nodiscard]] ZLStatus write(const ZLFilePieces& pieces);

private:
    enum class Kernel { Copies, CannotCopy };

    [[nodiscard]] ZLStatus writePiece(const ZLFilePiece& piece);
    [[nodiscard]] ZLStatus writeBytes(const QByteArray& bytes);
    [[nodiscard]] ZLStatus copyRange(qint64 offset, qint64 size);
    [[nodiscard]] ZLResult<qint64> copyStep(qint64 offset, qint64 size);
    [[nodiscard]] ZLResult<qint64> copyThroughMemory(qint64 offset, qint64 size);
    [[nodiscard]] ZLStatus checkCancelled() const;
    void noteWritten(qint64 count);

    const ZLMediaSource& m_source;
    int m_descriptor;
    ZLWorkProgress& m_progress;
    Kernel m_kernel = Kernel::Copies;
    qint64 m_written = 0;
    /// How much of it was handed to the disk.
    qint64 m_onItsWay = 0;
};

#include "platform/media/ZLPieceWriter.h"

#include <QCoreApplication>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

struct PieceWriterTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLPieceWriter)
};

/// As much as is copied between two looks at whether to go on.
constexpr qint64 stepOfTheKernel = 8 * 1024 * 1024;
/// Small enough for the caches of a processor.
constexpr qint64 stepThroughMemory = 256 * 1024;
/// Bytes of a block that a file system shares between files, or of several.
constexpr qint64 block = 4096;
/// As much as is written before the disk begins with it.
constexpr qint64 stepOfTheDisk = 8 * 1024 * 1024;

ZLError systemFailure(int error)
{
    return ZLError { qt_error_string(error) };
}

/// Whether the kernel says that it cannot copy between these two files, rather than that something went wrong.
bool isRefusal(int error)
{
    return error == EXDEV || error == ENOSYS || error == EINVAL || error == EOPNOTSUPP || error == EPERM;
}

}

ZLPieceWriter::ZLPieceWriter(const ZLMediaSource& source, int descriptor, ZLWorkProgress& progress)
    : m_source(source)
    , m_descriptor(descriptor)
    , m_progress(progress)
{
}

ZLStatus ZLPieceWriter::write(const ZLFilePieces& pieces)
{
    m_progress.begin(pieces.size());
    for (const ZLFilePiece& piece : pieces.pieces()) {
        if (const ZLStatus written = writePiece(piece); !written)
            return written;
    }
    return checkCancelled();
}

ZLStatus ZLPieceWriter::writePiece(const ZLFilePiece& piece)
{
    if (piece.make)
        return piece.make([this](const QByteArray& bytes) { return writeBytes(bytes); });
    return piece.isRange() ? copyRange(piece.offset, piece.size) : writeBytes(piece.bytes);
}

ZLStatus ZLPieceWriter::checkCancelled() const
{
    if (m_progress.isCancelled())
        return ZLError { PieceWriterTexts::tr("The writing was cancelled.") };
    return ZLDone {};
}

ZLStatus ZLPieceWriter::writeBytes(const QByteArray& bytes)
{
    if (const ZLStatus goesOn = checkCancelled(); !goesOn)
        return goesOn;
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::write(m_descriptor, bytes.constData() + done, size_t(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            return systemFailure(errno);
        done += std::max<ssize_t>(count, 0);
    }
    noteWritten(bytes.size());
    return ZLDone {};
}

/// The disk works while the copy goes on, so that the sync at the end has little left to wait for. It is that sync
/// which tells of a failure.
void ZLPieceWriter::noteWritten(qint64 count)
{
    m_progress.advance(count);
    m_written += count;
    const qint64 waiting = m_written - m_onItsWay;
    if (waiting < stepOfTheDisk)
        return;
    (void)sync_file_range(m_descriptor, m_onItsWay, waiting, SYNC_FILE_RANGE_WRITE);
    m_onItsWay = m_written;
}

ZLStatus ZLPieceWriter::copyRange(qint64 offset, qint64 size)
{
    for (qint64 done = 0; done < size;) {
        if (const ZLStatus goesOn = checkCancelled(); !goesOn)
            return goesOn;
        const auto count = copyStep(offset + done, size - done);
        if (!count)
            return count.error();
        done += count.value();
    }
    return ZLDone {};
}

/// Blocks can be shared only where both files have them as a whole. Elsewhere the kernel copies no faster than this.
ZLResult<qint64> ZLPieceWriter::copyStep(qint64 offset, qint64 size)
{
    const qint64 placeInBlock = offset % block;
    if (m_kernel == Kernel::CannotCopy || placeInBlock != m_written % block)
        return copyThroughMemory(offset, std::min(size, stepThroughMemory));
    if (placeInBlock != 0)
        return copyThroughMemory(offset, std::min(size, block - placeInBlock));
    loff_t from = offset;
    const ssize_t count = copy_file_range(
        m_source.descriptor(), &from, m_descriptor, nullptr, size_t(std::min(size, stepOfTheKernel)), 0);
    if (count > 0) {
        noteWritten(count);
        return qint64(count);
    }
    if (count < 0 && !isRefusal(errno))
        return systemFailure(errno);
    // Some file systems answer 0 where they cannot copy, so the last word is that of an ordinary reading.
    m_kernel = Kernel::CannotCopy;
    return copyThroughMemory(offset, std::min(size, stepThroughMemory));
}

ZLResult<qint64> ZLPieceWriter::copyThroughMemory(qint64 offset, qint64 size)
{
    const QByteArray bytes = m_source.read(offset, size);
    if (bytes.isEmpty())
        return ZLError { PieceWriterTexts::tr("The file ends early or cannot be read.") };
    const ZLStatus written = writeBytes(bytes);
    return written ? ZLResult<qint64>(qint64(bytes.size())) : ZLResult<qint64>(written.error());
}

#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>
#include <QString>

#include <sys/stat.h>

/// The most bytes that a file of each kind may have to be read.
namespace ZLFileBound {
inline constexpr qint64 Document = 512LL * 1024 * 1024; ///< Documents, their journals, what is imported.
inline constexpr qint64 List = 1024LL * 1024; ///< Settings, and lists that the program keeps.
inline constexpr qint64 Lock = 4096;
}

/// Whether a symbolic link may stand for the file. The program's own files are never links.
enum class ZLFileLinks { Follow, Refuse };

/// What is there under a name.
enum class ZLFileFinding {
    Read, ///< An ordinary file within the bound, which was read.
    Missing,
    TooLarge,
    NoOrdinaryFile, ///< A pipe, a device, a folder, a socket, or a link where none is followed.
    Unreadable, ///< The system refuses to open or to read it.
};

struct ZLFoundFile {
    ZLFileFinding finding = ZLFileFinding::Missing;
    QByteArray bytes {};
    /// Why there are no bytes, with the path in front; empty when the file was read.
    ZLError error {};
};

/// Reads whole files whatever stands under their names: opening never waits, what was opened is looked at before a byte
/// is read, and no more is read than the bound allows.
namespace ZLBoundedFile {

[[nodiscard]] ZLFoundFile find(const QString& path, qint64 bound, ZLFileLinks links = ZLFileLinks::Follow);
/// The first `length` bytes, or all when there are fewer. The file itself may have any size.
[[nodiscard]] ZLFoundFile findBeginning(const QString& path, qint64 length, ZLFileLinks links = ZLFileLinks::Follow);

/// find() for callers that want only the bytes.
[[nodiscard]] ZLResult<QByteArray> read(const QString& path, qint64 bound, ZLFileLinks links = ZLFileLinks::Follow);

/// "This is a pipe, not a file." and the like; empty for an ordinary file.
[[nodiscard]] QString whyNoOrdinaryFile(mode_t mode);

}

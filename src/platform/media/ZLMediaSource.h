#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>

#include <memory>
#include <sys/stat.h>

/// A file that is open for reading, any part of it at any time. Nothing of it is kept in memory.
class ZLMediaSource {
public:
    /// No single reading is larger, whatever a file claims.
    static constexpr qint64 largestReading = 16 * 1024 * 1024;

    /// Only ordinary files are opened; a pipe would keep the reading waiting.
    [[nodiscard]] static ZLResult<std::shared_ptr<ZLMediaSource>> open(const QString& path);
    ~ZLMediaSource();
    Q_DISABLE_COPY_MOVE(ZLMediaSource)

    [[nodiscard]] qint64 size() const { return m_status.st_size; }
    [[nodiscard]] int descriptor() const { return m_descriptor; }

    /// The bytes at `offset`; fewer where the file ends, where it cannot be read, and beyond largestReading.
    [[nodiscard]] QByteArray read(qint64 offset, qint64 length) const;

    /// Where the next bytes stand that are no hole; the size of the file where there are none. A hole reads as zeros.
    [[nodiscard]] qint64 endOfHole(qint64 offset) const;

    /// Fails when the file at the path is no longer the one that was opened, or was written to since. The error
    /// does not name it.
    [[nodiscard]] ZLStatus checkUnchanged() const;

private:
    ZLMediaSource(QString path, int descriptor, const struct stat& status);

    QString m_path;
    int m_descriptor;
    struct stat m_status;
};

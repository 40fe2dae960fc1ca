#pragma once

#include <QByteArray>
#include <QString>

/// Which file a path leads to, however it is written: links are followed, and two hard links are one file. Where there
/// is no file yet, the folder and the name in it tell.
class ZLFileIdentity {
public:
    [[nodiscard]] static ZLFileIdentity of(const QString& path);
    /// Where the links in `path` lead, also when nothing is there.
    [[nodiscard]] static QString resolvedPath(const QString& path);

    bool operator==(const ZLFileIdentity&) const = default;

private:
    quint64 m_device = 0;
    quint64 m_inode = 0;
    /// In the folder of that number; empty when the number is that of the file itself.
    QByteArray m_name {};
};

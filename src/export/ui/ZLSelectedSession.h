#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

/// What the file holds that is selected in a dialog, for advice about it. It is read once and then again only when it
/// was changed, since the advice is asked for with every mark.
class ZLSelectedSession {
public:
    /// Larger ones are not looked at beforehand; the export itself reads them all the same.
    static constexpr qint64 MostBytes = qint64(64) << 20;

    /// Empty for what is no file, cannot be read or is too large.
    [[nodiscard]] QByteArray bytesOf(const QString& path);

private:
    QString m_path;
    QDateTime m_time;
    qint64 m_size = -1;
    QByteArray m_bytes;
};

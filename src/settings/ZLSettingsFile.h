#pragma once

#include "platform/ZLBoundedFile.h"

#include <QByteArrayList>
#include <QHash>
#include <QString>
#include <QVariant>

/// Values by their keys in a text file in the INI form. What a person wrote there (remarks, order, unknown
/// keys) stays. A file that cannot be read, as it is a pipe, a device or too large, is told in the log and never
/// written; the values then live as long as the object.
class ZLSettingsFile {
public:
    /// The user's own file may be a link. One that is the program's own is not, and is for its user alone.
    explicit ZLSettingsFile(QString path, ZLFileLinks links = ZLFileLinks::Follow);

    /// Invalid when there is none.
    [[nodiscard]] QVariant value(const QString& key) const { return m_values.value(key); }
    /// Writes at once. What another process wrote since is read before.
    void setValue(const QString& key, const QVariant& value);
    /// The same for several values, in one go.
    void setValues(const QVariantMap& values);
    void remove(const QString& key);

private:
    struct Place {
        qsizetype first = 0; ///< Line.
        qsizetype count = 1; ///< A value may go over several lines.
    };

    void read();
    void readLines();
    void takeLine(qsizetype first, qsizetype count, const QByteArray& line, QByteArray& section);
    void putLine(const QString& key, const QByteArray& line);
    void removeLines(const QString& key);
    void write() const;
    [[nodiscard]] qsizetype endOfSection(const QByteArray& section);

    QString m_path;
    ZLFileLinks m_links;
    bool m_isUsable = true;
    QByteArrayList m_lines;
    QVariantMap m_values;
    QHash<QString, Place> m_places;
};

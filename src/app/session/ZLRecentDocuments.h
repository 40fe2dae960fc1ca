#pragma once

#include <QObject>
#include <QStringList>

/// The files that were opened or saved last, newest first, kept in "recent.json" in the state folder.
class ZLRecentDocuments : public QObject {
    Q_OBJECT

public:
    static constexpr qsizetype LongestList = 10;

    explicit ZLRecentDocuments(const QString& stateFolder, QObject* parent = nullptr);

    /// Those that exist at this moment. A file on a disk that is away is back as soon as the disk is.
    [[nodiscard]] QStringList paths() const;
    /// Puts an absolute path to the front.
    void add(const QString& path);
    void clear();

Q_SIGNALS:
    void didChange();

private:
    [[nodiscard]] QStringList storedPaths() const;
    void store(const QStringList& paths);

    QString m_stateFolder;
    QString m_path;
};

#pragma once

#include "export/ZLExporter.h"

/// Where a document was exported to, and how.
struct ZLExportTarget {
    QString formatName {};
    QString path {};
    ZLExportOption option = ZLExportOption::Off;
    QString linePattern {};
    /// Of the bytes that were written, see ZLExportTargets::digestOf().
    QByteArray digest {};

    bool operator==(const ZLExportTarget&) const = default;
};

/// Remembers the last target of each format by the path of the document, in the user's state folder: a document that is
/// handed on says nothing of the disk on which it was made. An untitled document goes by the file in which it is kept.
/// Losing it costs nothing but comfort, so failures are not reported.
class ZLExportTargets {
public:
    static constexpr qsizetype MostDocuments = 100;

    explicit ZLExportTargets(const QString& stateFolder);

    /// In the order of their first exports; empty for a document without a path.
    [[nodiscard]] QList<ZLExportTarget> recall(const QString& documentPath) const;
    /// `target` takes the place of the one with the same format.
    void remember(const QString& documentPath, const ZLExportTarget& target) const;
    /// What is remembered of the document at `from` is from now on that of the document at `to`, in place of what is
    /// remembered of that one.
    void move(const QString& from, const QString& to) const;

    [[nodiscard]] static QByteArray digestOf(const QByteArray& bytes);

private:
    /// In place of what is stored for these two documents.
    void store(const QString& documentPath, const QList<ZLExportTarget>& targets, const QString& formerPath) const;

    QString m_stateFolder;
    QString m_path;
};

#pragma once

#include <QHash>
#include <QObject>

class ZLChapterDocument;
class ZLDocumentWindows;
class ZLExports;

/// Tells in a document's window how its exports went: for a while where the file is, or in a bar why there is none. The
/// newer one of both takes the older one of the same format away.
class ZLExportDisplay : public QObject {
    Q_OBJECT

public:
    /// Both have to outlive the object.
    ZLExportDisplay(ZLExports& exports, ZLDocumentWindows& windows);

    /// The message that tells why there is no file of the format.
    [[nodiscard]] static QString failureNameFor(const QString& format);

private:
    void showFile(ZLChapterDocument* document, const QString& format, const QString& path);
    void showThatNothingWasInserted(
        ZLChapterDocument* document, const QString& format, const QString& path, const QString& reason);
    void showFailure(ZLChapterDocument* document, const QString& format, const QString& message);
    void warn(ZLChapterDocument* document, const QString& format, const QString& sentence);

    ZLDocumentWindows& m_windows;
    /// What was told of the last file of each format.
    QHash<QString, QString> m_successes;
};

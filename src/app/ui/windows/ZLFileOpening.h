#pragma once

#include "app/ZLDocumentOpener.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>

class ZLDocumentWindows;
class ZLStatusLine;

/// Opens files in windows, one after the other: the last one is in front in the end. The front window says what is
/// being read when that takes a while.
class ZLFileOpening : public QObject {
    Q_OBJECT

public:
    /// What could not be opened, a sentence each.
    using WhenOpened = std::function<void(const QStringList& problems)>;

    /// Both have to outlive the object.
    ZLFileOpening(ZLDocumentController& controller, const ZLDocumentWindows& windows);

    void open(const QStringList& paths, const WhenOpened& whenOpened);
    /// The same, and returns when all are open.
    QStringList openNow(const QStringList& paths);
    [[nodiscard]] bool isUnderWay() const { return m_opener.isOpening(); }

Q_SIGNALS:
    /// The document of `path` is open.
    void didOpen(const QString& path, ZLChapterDocument* document);
    void didEnd();

private:
    void openNext(QStringList paths, const QStringList& problems, const WhenOpened& whenOpened);
    [[nodiscard]] QStringList take(const QString& path, const ZLResult<ZLChapterDocument*>& opened);
    /// Tells it only when it takes a while.
    void tellWhatIsRead(const QString& path);
    void showWhatIsRead(const QString& name);
    void tellNoMore();

    const ZLDocumentWindows& m_windows;
    ZLDocumentOpener m_opener;
    QTimer m_slowReading;
    /// Where it was said, and how.
    QPointer<ZLStatusLine> m_statusLine;
    QString m_message;
};

#pragma once

#include "app/ZLDocumentController.h"

#include <QObject>

#include <functional>
#include <vector>

/// Opens files of the user's. A file is read and decoded beside the main thread, so that neither a long document nor a
/// slow disk holds up a mark in another one; the main thread only puts it into its places. What is still being read
/// when the object goes is not opened.
class ZLDocumentOpener : public QObject {
    Q_OBJECT

public:
    using WhenOpened = std::function<void(const ZLResult<ZLChapterDocument*>& opened)>;

    /// `controller` has to outlive the opener.
    explicit ZLDocumentOpener(ZLDocumentController& controller, QObject* parent = nullptr);

    /// Tells the document in the file at `path`, at once when it is open already. Of an audio file it is a new untitled
    /// one with its chapters; nothing is ever saved to that file. An error says which file and why. A file that is
    /// being read already is read once.
    void open(const QString& path, WhenOpened whenOpened);
    /// The same, and returns when it is read: while no window is there yet.
    ZLResult<ZLChapterDocument*> openNow(const QString& path);
    [[nodiscard]] bool isOpening() const { return !m_openings.empty(); }

Q_SIGNALS:
    /// isOpening() became false.
    void didEnd();

private:
    /// What a file holds: a document or, of an audio file, the contents of one.
    struct Read;
    struct Opening {
        QString path;
        std::vector<WhenOpened> whenOpened;
    };

    [[nodiscard]] static Read read(const ZLRecoveryFolder& folder, const QString& path);
    ZLResult<ZLChapterDocument*> take(const QString& path, Read read);
    void start(const QString& path, WhenOpened whenOpened);
    void make(const QString& path, Read read);
    void finish(const QString& path, const ZLResult<ZLChapterDocument*>& opened);

    ZLDocumentController& m_controller;
    std::vector<Opening> m_openings;
};

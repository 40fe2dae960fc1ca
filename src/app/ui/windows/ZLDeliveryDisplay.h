#pragma once

#include "delivery/ZLAudioFileMemory.h"

#include <QObject>

class ZLChapterDocumentWindow;
class ZLDeliveryDraft;
class ZLDeliverySheet;
class ZLDocumentController;

/// The sheet that writes chapters into audio files, in a document's window: it opens by the menu and by audio files
/// that are dropped on the window, with the files that the document was written into last.
class ZLDeliveryDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`; `controller` has to outlive it.
    ZLDeliveryDisplay(ZLDocumentController& controller, ZLChapterDocumentWindow& window);

    /// Opens the sheet, or gives the keyboard to the one that is open.
    void show();
    /// Opens the sheet with this audio file alone.
    void showFor(const QString& path);
    /// Audio files come into the sheet; any others are asked to be opened.
    void takeDroppedFiles(const QStringList& paths);

Q_SIGNALS:
    void openRequested(const QStringList& paths);

private:
    void makeSheet();
    void recallFiles();
    void close();
    [[nodiscard]] QString documentPath() const;

    ZLDocumentController& m_controller;
    ZLChapterDocumentWindow& m_window;
    const ZLAudioFileMemory m_memory;
    ZLDeliveryDraft* m_draft;
    /// Null until it is wanted.
    ZLDeliverySheet* m_sheet = nullptr;
};

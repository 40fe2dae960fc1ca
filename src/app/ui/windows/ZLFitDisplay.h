#pragma once

#include "delivery/ZLAudioFileMemory.h"
#include "delivery/fit/ZLSoundExcerpt.h"

#include <QObject>

class ZLChapterDocument;
class ZLChapterDocumentWindow;
class ZLDocumentController;
class ZLFitDraft;
class ZLFitSheet;

/// The sheet that finds a document's chapters in a finished file, in the document's window. It knows the files that
/// were chosen before.
class ZLFitDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`; `controller` has to outlive it.
    ZLFitDisplay(ZLDocumentController& controller, ZLChapterDocumentWindow& window,
        const ZLSoundExcerpt::SoundMaker& soundMaker);

    /// Opens the sheet, or gives the keyboard to the one that is open.
    void show();

Q_SIGNALS:
    /// The chapters are to be written into this file.
    void writingRequested(const QString& path);
    /// A new document of the chapters at their new places.
    void documentOpened(ZLChapterDocument* document);

private:
    void makeSheet();
    void connectSheet();
    void recallFiles();
    void rememberFiles();
    void openFittedDocument();
    void writeIntoFile();
    void close();
    [[nodiscard]] QString documentPath() const;

    ZLDocumentController& m_controller;
    ZLChapterDocumentWindow& m_window;
    const ZLAudioFileMemory m_memory;
    ZLFitDraft* m_draft;
    ZLSoundExcerpt* m_excerpt;
    /// Null until it is wanted.
    ZLFitSheet* m_sheet = nullptr;
};

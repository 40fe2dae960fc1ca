#pragma once

#include <QObject>

class ZLChapterDocumentWindow;
class ZLDocumentSaver;
class ZLSavePanel;

/// Says in a window, when its document is opened, that the file cannot be written. Until somebody knows that, he would
/// believe that the file follows him.
class ZLReadOnlyDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`; `saver` has to outlive it.
    ZLReadOnlyDisplay(const ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window);

    [[nodiscard]] static QString messageName() { return QStringLiteral("readOnlyFile"); }

private:
    void update();

    const ZLDocumentSaver& m_saver;
    ZLSavePanel& m_savePanel;
    ZLChapterDocumentWindow& m_window;
};

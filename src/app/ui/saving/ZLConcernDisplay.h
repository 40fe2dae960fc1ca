#pragma once

#include "document/concerns/ZLDocumentConcerns.h"

#include <QObject>
#include <QStringList>

class ZLChapterDocumentWindow;
class ZLSavePanel;

/// Shows in a window, as bars, what needs a decision about its document or is told of it.
class ZLConcernDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`; `saver` has to outlive it.
    ZLConcernDisplay(ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window);

private:
    void update();
    void show(const ZLConcern& concern);
    void choose(const ZLConcern& concern, ZLConcernAction action);

    ZLDocumentConcerns m_concerns;
    ZLSavePanel& m_savePanel;
    ZLChapterDocumentWindow& m_window;
    QStringList m_shownNames;
};

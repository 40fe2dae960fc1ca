#include "app/ui/saving/ZLReadOnlyDisplay.h"

#include "app/ui/saving/ZLSavePanel.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"

#include <QFileInfo>

ZLReadOnlyDisplay::ZLReadOnlyDisplay(
    const ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_saver(saver)
    , m_savePanel(savePanel)
    , m_window(window)
{
    connect(&saver, &ZLDocumentSaver::locationDidChange, this, &ZLReadOnlyDisplay::update);
    update();
}

void ZLReadOnlyDisplay::update()
{
    if (m_saver.isUntitled() || !ZLAtomicFile::isReadOnly(m_saver.path())) {
        m_window.messageBar().hideMessage(messageName());
        return;
    }
    m_window.messageBar().showMessage(messageName(),
        tr("“%1” is read-only. Changes are kept, but they cannot be saved to this file.")
            .arg(QFileInfo(m_saver.path()).fileName()),
        { { tr("Save As…"), [this] { m_savePanel.saveAs(); } }, { tr("OK"), [] {} } });
}

#include "app/ui/saving/ZLWindowCloser.h"

#include "app/ui/saving/ZLSavePanel.h"
#include "document/concerns/ZLConcern.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "platform/ZLShownText.h"

#include <QPointer>

namespace {

/// One question at a time: what comes of an answer may be the next question.
const QString questionName = QStringLiteral("closing");

}

ZLWindowCloser::ZLWindowCloser(
    ZLDocumentController& controller, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_controller(controller)
    , m_savePanel(savePanel)
    , m_window(window)
{
    window.setCloseGuard([this] { return windowShouldClose(); });
}

bool ZLWindowCloser::windowShouldClose()
{
    const ZLDocumentSaver* saver = m_controller.saverOf(&m_window.document());
    if (!saver)
        return true;
    m_window.commitTypedText();
    // The last window ends the program, and what has no file then is back at the next start: nothing to ask.
    if (!m_isDecided && saver->isUntitled() && saver->hasContent() && !isLastDocument()) {
        askWhetherToKeep();
        return false;
    }
    if (m_closing == ZLClosing::Keep && !m_isSaved && isAnotherRecording()) {
        saveBeforeClosing(*m_controller.saverOf(&m_window.document()));
        return false;
    }
    const ZLStatus closed = m_controller.closeDocument(&m_window.document(), m_closing);
    if (!closed)
        showFailure(closed.error().message);
    return closed.isOk();
}

bool ZLWindowCloser::isAnotherRecording() const
{
    return !m_window.document().isRecording() && !m_controller.canTerminate();
}

void ZLWindowCloser::saveBeforeClosing(ZLDocumentSaver& saver)
{
    saver.trySaving([closer = QPointer(this)](const ZLStatus& saved) {
        if (closer && !saved)
            closer->showFailure(saved.error().message);
        // The saver that is telling this goes with its document.
        else if (closer)
            QMetaObject::invokeMethod(closer.data(), &ZLWindowCloser::closeSaved, Qt::QueuedConnection);
    });
}

void ZLWindowCloser::closeSaved()
{
    m_isSaved = true;
    m_window.close();
    m_isSaved = false;
}

bool ZLWindowCloser::isLastDocument() const
{
    return m_controller.documents().size() == 1;
}

void ZLWindowCloser::askWhetherToKeep()
{
    const QString name = m_window.document().displayName();
    m_window.messageBar().showMessage(questionName, tr("“%1” is not in a file yet. Save it before closing?").arg(name),
        { { tr("Save As…"), [this] { m_savePanel.saveAs([this] { closeWith(ZLClosing::Keep); }); } },
            { tr("Discard"), [this] { closeWith(ZLClosing::Discard); } }, { tr("Cancel"), [] {} } });
    m_window.messageBar().takeKeyboardFor(questionName);
}

void ZLWindowCloser::showFailure(const QString& message)
{
    m_window.messageBar().showMessage(questionName,
        tr("The document cannot be saved: %1 Close it anyway?").arg(ZLShownText::withFullStop(message)),
        { { tr("Save As…"), [this] { m_savePanel.saveAs([this] { closeWith(ZLClosing::Keep); }); } },
            { tr("Close Without Saving"), [this] { closeWith(ZLClosing::Discard); } }, { tr("Cancel"), [] {} } },
        { ZLConcernName::SavingFailure }, ZLMessageBar::Kind::Error);
    m_window.messageBar().takeKeyboardFor(questionName);
}

void ZLWindowCloser::closeWith(ZLClosing closing)
{
    m_closing = closing;
    m_isDecided = true;
    m_window.close();
    // Still here only when the closing was refused: then the decision has to be made anew.
    m_closing = ZLClosing::Keep;
    m_isDecided = false;
}

#include "app/ui/ZLSavingDisplay.h"

#include "app/ui/ZLSavePanel.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"

ZLSavingDisplay::ZLSavingDisplay(ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_saver(saver)
    , m_savePanel(savePanel)
    , m_window(window)
{
    connect(&saver, &ZLDocumentSaver::stateDidChange, this, &ZLSavingDisplay::update);
    connect(&saver, &ZLDocumentSaver::locationDidChange, this, &ZLSavingDisplay::update);
    connect(&window.statusLine(), &ZLStatusLine::saveStatusClicked, this, [this] { m_savePanel.saveAs(); });
    // A decision that was asked for has been made: what is still true comes back.
    connect(&window.messageBar(), &ZLMessageBar::didHide, this, &ZLSavingDisplay::updateBar);
    update();
}

void ZLSavingDisplay::update()
{
    m_window.statusLine().setSaveStatus(statusText(), statusToolTip());
    m_window.setWindowFilePath(m_saver.path());
    updateBar();
}

void ZLSavingDisplay::updateBar()
{
    if (m_saver.state() == ZLSavingState::Failed)
        showFailureBar();
    else if (m_saver.state() == ZLSavingState::Saved)
        hideFailureBar();
}

void ZLSavingDisplay::showFailureBar()
{
    const QString text = tr("The document is not saved: %1 Zelta keeps trying.").arg(m_saver.failureText());
    const QString shown = m_window.messageBar().text();
    const bool isTaken = !shown.isEmpty() && shown != m_shownFailure;
    if (shown == text || isTaken)
        return;
    m_shownFailure = text;
    m_window.messageBar().showMessage(text,
        { { tr("Try Now"), [this] { (void)m_saver.saveNow(); } },
            { tr("Save As…"), [this] { m_savePanel.saveAs(); } } });
}

void ZLSavingDisplay::hideFailureBar()
{
    if (!m_shownFailure.isEmpty() && m_window.messageBar().text() == m_shownFailure)
        m_window.messageBar().hideMessage();
    m_shownFailure.clear();
}

QString ZLSavingDisplay::statusText() const
{
    switch (m_saver.state()) {
    case ZLSavingState::Waiting:
    case ZLSavingState::Saving:
        return tr("Saving…");
    case ZLSavingState::Failed:
        return tr("Not saved");
    case ZLSavingState::Saved:
        break;
    }
    if (!m_saver.isUntitled())
        return tr("Saved");
    return m_saver.hasContent() ? tr("Kept, no file yet") : tr("Nothing to save yet");
}

QString ZLSavingDisplay::statusToolTip() const
{
    if (m_saver.state() == ZLSavingState::Failed)
        return m_saver.failureText();
    if (m_saver.isUntitled())
        return tr("This document has no file yet. It is kept aside and is back at the next start. Click to save it to "
                  "a file.");
    return tr("Every change is written to %1. Click to save under another name.").arg(m_saver.path());
}

#include "app/ui/saving/ZLSavingDisplay.h"

#include "app/ui/saving/ZLSavePanel.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"

ZLSavingDisplay::ZLSavingDisplay(const ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_saver(saver)
    , m_savePanel(savePanel)
    , m_window(window)
{
    connect(&saver, &ZLDocumentSaver::stateDidChange, this, &ZLSavingDisplay::update);
    connect(&saver, &ZLDocumentSaver::locationDidChange, this, &ZLSavingDisplay::update);
    connect(&window.statusLine(), &ZLStatusLine::saveStatusClicked, this, [this] { m_savePanel.saveAs(); });
    update();
}

void ZLSavingDisplay::update()
{
    m_window.statusLine().setSaveStatus(statusText(), statusToolTip());
    m_window.setWindowFilePath(m_saver.path());
}

QString ZLSavingDisplay::statusText() const
{
    switch (m_saver.state()) {
    case ZLSavingState::Waiting:
    case ZLSavingState::Saving:
        return tr("Saving…");
    case ZLSavingState::Failed:
    case ZLSavingState::Conflict:
        return tr("Not saved");
    case ZLSavingState::Saved:
        break;
    }
    if (!m_saver.isUntitled())
        return tr("Saved");
    return m_saver.hasContent() ? tr("Not in a file yet, kept safe") : tr("Empty");
}

QString ZLSavingDisplay::statusToolTip() const
{
    if (!m_saver.failureText().isEmpty())
        return m_saver.failureText();
    if (m_saver.isUntitled())
        return tr(
            "This document is not in a file yet. It is kept safe and opens again at the next start. Click to save "
            "it to a file.");
    return tr("Every change is written to %1. Click to save under another name.").arg(m_saver.path());
}

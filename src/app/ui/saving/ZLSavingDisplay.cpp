#include "app/ui/saving/ZLSavingDisplay.h"

#include "app/ui/saving/ZLReadOnlyDisplay.h"
#include "app/ui/saving/ZLSavePanel.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"

#include <QFileInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

const QString conflictName = QStringLiteral("fileConflict");
const QString interruptionName = QStringLiteral("interruptedRecording");
const QString otherHolderName = QStringLiteral("openElsewhere");
const QString recoveryFailureName = QStringLiteral("recoveryFailure");
const QString failureName = ZLSavingDisplay::failureMessageName();

}

ZLSavingDisplay::ZLSavingDisplay(ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_document(window.document())
    , m_saver(saver)
    , m_savePanel(savePanel)
    , m_window(window)
{
    connect(&saver, &ZLDocumentSaver::stateDidChange, this, &ZLSavingDisplay::update);
    connect(&saver, &ZLDocumentSaver::locationDidChange, this, &ZLSavingDisplay::update);
    connect(&m_document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        if (change.concerns(ZLDocumentChange::Interruption))
            updateBar();
    });
    connect(&window.statusLine(), &ZLStatusLine::saveStatusClicked, this, [this] { m_savePanel.saveAs(); });
    update();
}

QString ZLSavingDisplay::sentence(const QString& reason)
{
    return reason.endsWith(u'.') ? reason : reason + u'.';
}

void ZLSavingDisplay::update()
{
    m_window.statusLine().setSaveStatus(statusText(), statusToolTip());
    m_window.setWindowFilePath(m_saver.path());
    updateBar();
}

void ZLSavingDisplay::updateBar()
{
    if (m_saver.state() != ZLSavingState::Conflict)
        m_refusal.clear();
    showOrHide(conflictName, m_saver.state() == ZLSavingState::Conflict ? conflictMessage() : Message());
    const auto& interruption = m_document.interruptedRecording();
    showOrHide(interruptionName, interruption ? interruptionMessage(*interruption) : Message());
    const bool isNews = !m_saver.otherHolder().isEmpty() && m_saver.otherHolder() != m_acceptedHolder;
    showOrHide(otherHolderName, isNews ? otherHolderMessage() : Message());
    showOrHide(recoveryFailureName, m_saver.recoveryFailureText().isEmpty() ? Message() : recoveryFailureMessage());
    // While it is tried again nobody knows yet whether the failure is over.
    if (m_saver.state() == ZLSavingState::Failed)
        showOrHide(failureName, failureMessage());
    else if (m_saver.state() == ZLSavingState::Saved || m_saver.state() == ZLSavingState::Conflict)
        showOrHide(failureName, {});
}

void ZLSavingDisplay::showOrHide(const QString& name, const Message& message)
{
    ZLMessageBar& bar = m_window.messageBar();
    if (message.text.isEmpty())
        bar.hideMessage(name);
    // Shown anew with every attempt, it would be read aloud every time.
    else if (bar.text(name) != message.text)
        bar.showMessage(name, message.text, message.buttons, message.coveredNames, message.kind);
}

ZLSavingDisplay::Message ZLSavingDisplay::conflictMessage()
{
    const QString name = QFileInfo(m_saver.path()).fileName();
    return { tr("Another program changed “%1”. %2").arg(name, m_refusal).trimmed(),
        { { tr("Keep Mine"), [this] { tellOutcome(m_saver.keepMine()); } },
            { tr("Take Theirs"), [this] { tellOutcome(m_saver.takeTheirs()); } },
            { tr("Keep Both"), [this] { tellOutcome(m_saver.keepBoth()); } } } };
}

ZLSavingDisplay::Message ZLSavingDisplay::otherHolderMessage()
{
    const QString holder = m_saver.otherHolder();
    return { tr("“%1” is also open elsewhere (%2). Changes made there are never overwritten without asking.")
                 .arg(QFileInfo(m_saver.path()).fileName(), holder),
        { { tr("OK"), [this, holder] { m_acceptedHolder = holder; } },
            { tr("Save As…"), [this] { m_savePanel.saveAs(); } } } };
}

ZLSavingDisplay::Message ZLSavingDisplay::interruptionMessage(const ZLInterruptedRecording& interruption)
{
    const QDateTime seen = interruption.lastSeen.toLocalTime();
    return { tr("The recording was interrupted on %1 at %2. The clock is paused until you decide.")
                 .arg(QLocale().toString(seen.date(), QLocale::ShortFormat),
                     QLocale().toString(seen.time(), QLocale::ShortFormat)),
        { { tr("Continue as if Never Stopped"), [this] { m_document.continueInterruptedRecording(); } },
            { tr("Stay Paused"), [this] { m_document.keepInterruptedRecordingPaused(); } } } };
}

ZLSavingDisplay::Message ZLSavingDisplay::failureMessage()
{
    return { tr("The document is not saved: %1 Zelta keeps trying.").arg(sentence(m_saver.failureText())),
        { { tr("Try Now"),
              [this] {
                  (void)m_saver.saveNow();
                  updateBar();
              } },
            { tr("Save As…"),
                [this] {
                    // Until the new place is known, what is true stays in sight.
                    updateBar();
                    m_savePanel.saveAs();
                } } },
        // Both are then about the same folder, or the same file.
        { m_saver.isUntitled() ? recoveryFailureName : ZLReadOnlyDisplay::messageName() }, ZLMessageBar::Kind::Error };
}

ZLSavingDisplay::Message ZLSavingDisplay::recoveryFailureMessage() const
{
    return { tr("The recovery folder cannot be written: %1 A crash may take what is not in the file yet. Zelta keeps "
                "trying.")
                 .arg(sentence(m_saver.recoveryFailureText())),
        {}, {}, ZLMessageBar::Kind::Error };
}

void ZLSavingDisplay::tellOutcome(const ZLStatus& outcome)
{
    m_refusal = outcome ? QString() : outcome.error().message;
    updateBar();
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

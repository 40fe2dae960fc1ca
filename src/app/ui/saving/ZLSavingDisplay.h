#pragma once

#include "document/saving/ZLDocumentSaver.h"
#include "document/ui/ZLMessageBar.h"

#include <QObject>

class ZLChapterDocumentWindow;
class ZLSavePanel;

/// Shows in a window whether its document is on the disk: always in the status line, and as a bar when it is not and
/// cannot be brought there, when the recovery folder does not take what changes, or when a recording that was cut off
/// or a file that another program changed needs a decision.
class ZLSavingDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`; `saver` has to outlive it.
    ZLSavingDisplay(ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window);

    /// The name of the message that the document is not saved.
    [[nodiscard]] static QString failureMessageName() { return QStringLiteral("savingFailure"); }
    /// A reason that another sentence may follow: the system's own end without a full stop.
    [[nodiscard]] static QString sentence(const QString& reason);

private:
    struct Message {
        QString text {};
        QList<ZLMessageBar::Button> buttons {};
        QStringList coveredNames {};
        ZLMessageBar::Kind kind = ZLMessageBar::Kind::Question;
    };

    void update();
    void updateBar();
    /// A message without a text is one that is no longer true.
    void showOrHide(const QString& name, const Message& message);
    [[nodiscard]] Message conflictMessage();
    [[nodiscard]] Message interruptionMessage(const ZLInterruptedRecording& interruption);
    [[nodiscard]] Message failureMessage();
    [[nodiscard]] Message recoveryFailureMessage() const;
    [[nodiscard]] Message otherHolderMessage();
    /// Says why a decision could not be carried out.
    void tellOutcome(const ZLStatus& outcome);
    [[nodiscard]] QString statusText() const;
    [[nodiscard]] QString statusToolTip() const;

    ZLChapterDocument& m_document;
    ZLDocumentSaver& m_saver;
    ZLSavePanel& m_savePanel;
    ZLChapterDocumentWindow& m_window;
    /// Why the last decision was not carried out, until the next one.
    QString m_refusal;
    /// Of whom the user knows already.
    QString m_acceptedHolder;
};

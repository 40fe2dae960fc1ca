#include "document/concerns/ZLDocumentConcerns.h"

#include "document/concerns/ZLSleepText.h"
#include "platform/ZLShownText.h"

#include <QFileInfo>
#include <QLocale>
#include <QPointer>

#include <cmath>

using Action = ZLConcernAction;
using Matter = ZLConcernMatter;

ZLDocumentConcerns::ZLDocumentConcerns(
    ZLChapterDocument& document, ZLDocumentSaver& saver, ZLConcernReader reader, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_saver(saver)
    , m_reader(reader)
{
    connect(&saver, &ZLDocumentSaver::stateDidChange, this, &ZLDocumentConcerns::followState);
    connect(&saver, &ZLDocumentSaver::locationDidChange, this, &ZLDocumentConcerns::followLocation);
    connect(&document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        // Undoing the start of the recording takes away what could be decided about a sleep.
        if (change.concerns(ZLDocumentChange::Interruption | ZLDocumentChange::Sleeps | ZLDocumentChange::Recording
                | ZLDocumentChange::RecorderDifference))
            Q_EMIT didChange();
    });
    followLocation();
    followState();
}

QList<ZLConcern> ZLDocumentConcerns::all() const
{
    QList<ZLConcern> concerns;
    if (m_saver.state() == ZLSavingState::Conflict)
        concerns.append(conflict());
    if (const auto& interrupted = m_document.interruptedRecording())
        concerns.append(interruption(*interrupted));
    if (!m_saver.otherHolder().isEmpty())
        concerns.append(openElsewhere());
    if (!m_saver.recoveryFailureText().isEmpty())
        concerns.append(recoveryFailure());
    if (!m_failure.isEmpty())
        concerns.append(savingFailure());
    if (m_isReadOnly)
        concerns.append(readOnlyFile());
    if (!m_document.undecidedSleeps().isEmpty())
        concerns.append(sleep());
    if (m_document.recording().recorderDifference().undecided())
        concerns.append(recorderDifference());
    concerns.removeIf([this](const ZLConcern& concern) { return m_dismissed.value(concern.name) == concern.sentence; });
    return concerns;
}

void ZLDocumentConcerns::choose(const ZLConcern& concern, ZLConcernAction action, const ZLWhenDone& whenDone)
{
    if (action == Action::Dismiss)
        m_dismissed.insert(concern.name, concern.sentence);
    const bool isConflict = concern.name == ZLConcernName::FileConflict;
    perform(action, [concerns = QPointer(this), isConflict, whenDone](const ZLStatus& outcome) {
        if (!concerns)
            return;
        if (isConflict)
            concerns->m_refusal = outcome ? QString() : outcome.error().message;
        Q_EMIT concerns->didChange();
        whenDone(outcome);
    });
}

void ZLDocumentConcerns::perform(ZLConcernAction action, const ZLWhenDone& whenDone)
{
    switch (action) {
    case Action::ContinueRecording:
        m_document.continueInterruptedRecording();
        break;
    case Action::StayPaused:
        m_document.keepInterruptedRecordingPaused();
        break;
    case Action::AddSleptTime:
        m_document.addSleptTime();
        break;
    case Action::LeaveSleptTime:
        m_document.leaveSleptTime();
        break;
    case Action::TakeRecordersTime:
        m_document.recording().recorderDifference().takeRecorders();
        break;
    case Action::KeepZeltasTime:
        m_document.recording().recorderDifference().keepZeltas();
        break;
    case Action::KeepMine:
        m_saver.keepMine(whenDone);
        return;
    case Action::TakeTheirs:
        m_saver.takeTheirs(whenDone);
        return;
    case Action::KeepBoth:
        m_saver.keepBoth(whenDone);
        return;
    case Action::TryNow:
        m_saver.trySaving(whenDone);
        return;
    case Action::SaveAs:
    case Action::Dismiss:
        break;
    }
    whenDone(ZLDone {});
}

void ZLDocumentConcerns::followState()
{
    // While it is tried again, it is not known yet whether the failure is over.
    if (m_saver.state() == ZLSavingState::Failed)
        m_failure = m_saver.failureText();
    else if (m_saver.state() == ZLSavingState::Saved || m_saver.state() == ZLSavingState::Conflict)
        m_failure.clear();
    if (m_saver.state() != ZLSavingState::Conflict)
        m_refusal.clear();
    Q_EMIT didChange();
}

void ZLDocumentConcerns::followLocation()
{
    m_isReadOnly = !m_saver.isUntitled() && ZLAtomicFile::isReadOnly(m_saver.path());
    Q_EMIT didChange();
}

QString ZLDocumentConcerns::fileText() const
{
    return m_reader == ZLConcernReader::Terminal ? m_saver.path()
                                                 : tr("“%1”").arg(QFileInfo(m_saver.path()).fileName());
}

ZLConcern ZLDocumentConcerns::conflict() const
{
    QString sentence = tr("Another program changed %1.").arg(fileText());
    // A terminal has the refusal among the lines before.
    if (m_reader == ZLConcernReader::Window && !m_refusal.isEmpty())
        sentence += u' ' + m_refusal;
    return { .name = ZLConcernName::FileConflict,
        .sentence = sentence,
        .choices = { Action::KeepMine, Action::TakeTheirs, Action::KeepBoth } };
}

ZLConcern ZLDocumentConcerns::interruption(const ZLInterruptedRecording& interruption) const
{
    const QDateTime seen = interruption.lastSeen.toLocalTime();
    return { .name = ZLConcernName::InterruptedRecording,
        .sentence = tr("The recording was interrupted on %1 at %2, at %3 of the clock. The clock is paused until you "
                       "decide.")
            .arg(QLocale().toString(seen.date(), QLocale::ShortFormat),
                QLocale().toString(seen.time(), QLocale::ShortFormat), m_document.clockText()),
        .choices = { Action::ContinueRecording, Action::StayPaused },
        .matter = Matter::Recording };
}

ZLConcern ZLDocumentConcerns::openElsewhere() const
{
    return { .name = ZLConcernName::OpenElsewhere,
        .sentence = tr("%1 is also open elsewhere (%2). Changes made there are never overwritten without asking.")
            .arg(fileText(), m_saver.otherHolder()),
        .choices = { Action::Dismiss, Action::SaveAs },
        .matter = Matter::Opening };
}

ZLConcern ZLDocumentConcerns::recoveryFailure() const
{
    return { .name = ZLConcernName::RecoveryFailure,
        .sentence = tr("The recovery folder cannot be written: %1 A crash may take what is not in the file yet. Zelta "
                       "keeps trying.")
            .arg(ZLShownText::withFullStop(m_saver.recoveryFailureText())),
        .matter = Matter::RecoveryFolder,
        .isError = true };
}

ZLConcern ZLDocumentConcerns::savingFailure() const
{
    const QString reason = ZLShownText::withFullStop(m_failure);
    // Scripts that watch a recorder look for the second text.
    const QString sentence = m_reader == ZLConcernReader::Window
        ? tr("The document is not saved: %1 Zelta keeps trying.").arg(reason)
        : tr("Cannot save: %1 Trying again until it works.").arg(reason);
    return { .name = ZLConcernName::SavingFailure,
        .sentence = sentence,
        .choices = { Action::TryNow, Action::SaveAs },
        .isError = true,
        // Both are then about the same folder, or the same file.
        .coveredNames = { m_saver.isUntitled() ? ZLConcernName::RecoveryFailure : ZLConcernName::ReadOnlyFile } };
}

ZLConcern ZLDocumentConcerns::readOnlyFile() const
{
    return { .name = ZLConcernName::ReadOnlyFile,
        .sentence = tr("%1 is read-only. Changes are kept, but they cannot be saved to this file.").arg(fileText()),
        .choices = { Action::SaveAs, Action::Dismiss },
        .matter = Matter::Opening };
}

ZLConcern ZLDocumentConcerns::sleep() const
{
    return { .name = ZLConcernName::Sleep,
        .sentence = ZLSleepText::sentence(m_document.undecidedSleeps()),
        .choices = { Action::AddSleptTime, Action::LeaveSleptTime },
        .matter = Matter::Recording };
}

ZLConcern ZLDocumentConcerns::recorderDifference() const
{
    const double seconds = m_document.recording().recorderDifference().undecided()->seconds;
    const QString size = QLocale().toString(std::abs(seconds), 'f', 1);
    return { .name = ZLConcernName::RecorderDifference,
        .sentence = seconds > 0.0 ? tr("The recorder's time is %1 s ahead of Zelta's clock.").arg(size)
                                  : tr("The recorder's time is %1 s behind Zelta's clock.").arg(size),
        .choices = { Action::TakeRecordersTime, Action::KeepZeltasTime },
        .matter = Matter::Recording };
}

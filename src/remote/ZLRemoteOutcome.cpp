#include "remote/ZLRemoteOutcome.h"

#include "document/ZLChapterDocument.h"

#include <QCoreApplication>

namespace {

struct OutcomeTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLRemoteOutcome)
};

}

ZLRemoteOutcome::ZLRemoteOutcome(ZLChapterDocument* document, ZLChapterDocument* recordingBeside)
    : m_document(document)
    , m_recordingBeside(recordingBeside)
{
    if (!document)
        return;
    m_wasRecording = document->isRecording();
    m_wasWaitingForBeep = document->isWaitingForBeep();
    m_chapterCount = document->chapterManager().count();
    m_selectedRow = document->selectedRow();
}

bool ZLRemoteOutcome::hadEffect() const
{
    return m_document
        && (m_document->isRecording() != m_wasRecording || (m_document->isWaitingForBeep() && !m_wasWaitingForBeep)
            || m_document->chapterManager().count() != m_chapterCount || m_document->selectedRow() != m_selectedRow);
}

bool ZLRemoteOutcome::hasAddedChapter() const
{
    return m_document && m_document->chapterManager().count() > m_chapterCount;
}

QString ZLRemoteOutcome::description(const ZLRemoteAction& action) const
{
    if (!m_document)
        return OutcomeTexts::tr("did nothing: no document is open");
    if (m_document->isRecording() != m_wasRecording)
        return m_wasRecording ? OutcomeTexts::tr("paused the recording") : OutcomeTexts::tr("started the recording");
    if (m_document->isWaitingForBeep() && !m_wasWaitingForBeep)
        return OutcomeTexts::tr("played the beep");
    const qsizetype count = m_document->chapterManager().count();
    if (count != m_chapterCount)
        return count > m_chapterCount ? OutcomeTexts::tr("added a chapter") : OutcomeTexts::tr("deleted a chapter");
    if (m_document->selectedRow() != m_selectedRow)
        return OutcomeTexts::tr("selected chapter %1").arg(m_document->selectedRow() + 1);
    return descriptionOfNothing(action);
}

QString ZLRemoteOutcome::descriptionOfNothing(const ZLRemoteAction& action) const
{
    if (!m_recordingBeside)
        return OutcomeTexts::tr("did nothing: %1").arg(action.obstacle());
    return OutcomeTexts::tr("did nothing in “%1”: %2; “%3” is recording")
        .arg(m_document->displayName(), action.obstacle(), m_recordingBeside->displayName());
}

#include "document/saving/ZLSavingReport.h"

#include "document/saving/ZLKeepableContent.h"
#include "document/saving/ZLSilentDisk.h"

#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(savingReportLog, "zelta.document.save", QtInfoMsg)

}

ZLSavingReport::ZLSavingReport(ZLChapterDocument& document, const ZLDocumentPlace& place, ZLWriteSchedule& schedule)
    : m_document(document)
    , m_place(place)
    , m_schedule(schedule)
{
}

void ZLSavingReport::noteChange()
{
    if (m_state == ZLSavingState::Saved)
        setState(ZLSavingState::Waiting);
}

void ZLSavingReport::noteBeginning()
{
    if (m_state != ZLSavingState::Failed)
        setState(ZLSavingState::Saving);
}

void ZLSavingReport::noteWritten(quint64 revision)
{
    m_schedule.noteWritten(revision);
    if (m_schedule.isEverythingWritten())
        noteEverythingIsSaved();
    else
        setState(ZLSavingState::Waiting);
}

void ZLSavingReport::noteEverythingIsSaved()
{
    m_schedule.noteWritten(m_schedule.revision());
    // A document without a file of the user's counts as edited, however well it is kept.
    m_document.setDocumentEdited(m_place.isUntitled() && ZLKeepableContent::isIn(m_document));
    setState(ZLSavingState::Saved);
}

ZLError ZLSavingReport::noteFailure(const ZLError& error)
{
    qCWarning(savingReportLog) << "cannot write" << error.message;
    m_document.setDocumentEdited(true);
    m_schedule.planRetry();
    setState(ZLSavingState::Failed, error.message);
    return error;
}

void ZLSavingReport::noteConflict(const ZLError& error)
{
    qCWarning(savingReportLog) << error.message;
    m_document.setDocumentEdited(true);
    m_schedule.dropPlannedWrite();
    setState(ZLSavingState::Conflict, error.message);
}

void ZLSavingReport::noteDecision()
{
    setState(ZLSavingState::Waiting);
}

ZLError ZLSavingReport::noteHangingFile()
{
    const ZLError error = ZLSilentDisk::error(m_place.nameForMessages());
    m_document.setDocumentEdited(true);
    setState(ZLSavingState::Failed, error.message);
    return error;
}

void ZLSavingReport::setState(ZLSavingState state, const QString& failureText)
{
    if (m_state == state && m_failureText == failureText)
        return;
    m_state = state;
    m_failureText = failureText;
    Q_EMIT didChange();
}

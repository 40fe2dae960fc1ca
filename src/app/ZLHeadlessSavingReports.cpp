#include "app/ZLHeadlessSavingReports.h"

#include "platform/ZLShownText.h"

#include <utility>

ZLHeadlessSavingReports::ZLHeadlessSavingReports(ZLDocumentController& controller, Complain complain, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
    , m_complain(std::move(complain))
{
}

void ZLHeadlessSavingReports::begin(const ZLChapterDocument* document)
{
    m_document = document;
    const auto documents = m_controller.documents();
    for (const ZLChapterDocument* each : documents)
        watch(each);
    connect(&m_controller, &ZLDocumentController::didOpenDocument, this, &ZLHeadlessSavingReports::watch);
    connect(&m_controller, &ZLDocumentController::didCloseDocument, this, [this](const ZLChapterDocument* closed) {
        m_failures.erase(closed);
        m_recoveryFailures.erase(closed);
    });
}

QString ZLHeadlessSavingReports::nameOf(const ZLChapterDocument& document, const ZLDocumentSaver& saver)
{
    return saver.isUntitled() ? document.displayName() : saver.path();
}

QString ZLHeadlessSavingReports::describe(const ZLDocumentSaver& saver)
{
    switch (saver.state()) {
    case ZLSavingState::Saved:
        return tr("saved");
    case ZLSavingState::Waiting:
    case ZLSavingState::Saving:
        return tr("saving");
    case ZLSavingState::Failed:
    case ZLSavingState::Conflict:
        break;
    }
    return tr("not saved: %1").arg(saver.failureText());
}

void ZLHeadlessSavingReports::watch(const ZLChapterDocument* document)
{
    const ZLDocumentSaver* saver = m_controller.saverOf(document);
    const auto report = [this, document, saver] {
        reportFile(*document, *saver);
        reportRecovery(*document, *saver);
    };
    connect(saver, &ZLDocumentSaver::stateDidChange, this, report);
    report();
}

void ZLHeadlessSavingReports::reportFile(const ZLChapterDocument& document, const ZLDocumentSaver& saver)
{
    const QString failure = saver.failureText();
    if (std::exchange(m_failures[&document], failure) == failure)
        return;
    if (failure.isEmpty())
        m_complain(tr("Saved again: %1").arg(nameOf(document, saver)));
    else
        m_complain(describeFailure(document, saver));
}

QString ZLHeadlessSavingReports::describeFailure(const ZLChapterDocument& document, const ZLDocumentSaver& saver) const
{
    const QString failure = saver.failureText();
    if (saver.state() != ZLSavingState::Conflict)
        return tr("Cannot save: %1. Trying again until it works.").arg(ZLShownText::withoutFullStop(failure));
    if (&document != m_document)
        return tr("Cannot save: %1 Nothing is written there until you decide in a window.").arg(failure);
    return tr("Cannot save: %1 \"mine\" writes over it, \"theirs\" takes it over, \"both\" goes on in a new file.")
        .arg(failure);
}

void ZLHeadlessSavingReports::reportRecovery(const ZLChapterDocument& document, const ZLDocumentSaver& saver)
{
    if (saver.recoveryFailureText().isEmpty())
        m_recoveryFailures.erase(&document);
    else
        m_recoveryFailures[&document] = saver.recoveryFailureText();
    // The folder is one for all of them, and is told of once.
    const QString failure = m_recoveryFailures.empty() ? QString() : m_recoveryFailures.begin()->second;
    if (std::exchange(m_recoveryFailure, failure) == failure)
        return;
    if (failure.isEmpty())
        m_complain(tr("The recovery folder can be written again."));
    else
        m_complain(tr("The recovery folder cannot be written: %1. A crash may take what is not in the file yet. Trying "
                      "again until it works.")
                .arg(ZLShownText::withoutFullStop(failure)));
}

#include "app/ui/windows/ZLExportAgainDisplay.h"

#include "app/ZLExportMemory.h"
#include "app/ui/windows/ZLExportDisplay.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "export/lists/ZLListExporter.h"
#include "export/ui/ZLDocumentExportInput.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString exportAgainName = QStringLiteral("exportAgain");
const QString exportAgainFailureName = QStringLiteral("exportAgainFailure");

QString fileNameOf(const ZLExportTarget& target)
{
    return QFileInfo(target.path).fileName();
}

QStringList sessionNames(const ZLExportAgain& again)
{
    QStringList names;
    for (const QString& session : again.sessions())
        names.append(QFileInfo(session).fileName());
    return names;
}

/// Empty where there is no doubt.
QString doubtText(const ZLExportTarget& target)
{
    switch (ZLExportAgain::doubtAbout(target)) {
    case ZLExportAgain::Doubt::None:
        break;
    case ZLExportAgain::Doubt::Gone:
        return ZLExportAgainDisplay::tr("“%1” is gone.").arg(fileNameOf(target));
    case ZLExportAgain::Doubt::Changed:
        return ZLExportAgainDisplay::tr("“%1” was changed by another program.").arg(fileNameOf(target));
    case ZLExportAgain::Doubt::Open:
        return ZLExportAgainDisplay::tr("“%1” is open in another program.").arg(fileNameOf(target));
    case ZLExportAgain::Doubt::Unreadable:
        return ZLExportAgainDisplay::tr("“%1” cannot be read.").arg(fileNameOf(target));
    }
    return {};
}

}

ZLExportAgainDisplay::ZLExportAgainDisplay(const ZLExportMemory& memory, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_memory(memory)
    , m_window(window)
{
}

void ZLExportAgainDisplay::exportAgain()
{
    m_window.commitTypedText();
    m_window.messageBar().hideMessage(exportAgainName);
    const ZLExportAgain again(
        m_memory.recall(nameOfDocument()), ZLExporter::allExporters() + ZLListExporter::allForms());
    QList<ZLExportTarget> safe;
    QStringList doubts;
    for (const ZLExportTarget& target : again.targets()) {
        const QString doubt = doubtText(target);
        if (doubt.isEmpty())
            safe.append(target);
        else
            doubts.append(doubt);
    }
    if (doubts.isEmpty())
        write(again, safe);
    else
        ask(again, safe, doubts);
}

void ZLExportAgainDisplay::ask(const ZLExportAgain& again, const QList<ZLExportTarget>& safe, const QStringList& doubts)
{
    const QString all = again.targets().size() == 1 ? tr("Write") : tr("Write All");
    QList<ZLMessageBar::Button> buttons { { all, [this, again] { write(again, again.targets()); } } };
    if (!safe.isEmpty())
        buttons.append({ tr("Write the Others"), [this, again, safe] { write(again, safe); } });
    buttons.append({ tr("Cancel"), [] { } });
    m_window.messageBar().showMessage(exportAgainName, doubts.join(u' '), buttons);
    m_window.messageBar().takeKeyboardFor(exportAgainName);
}

void ZLExportAgainDisplay::write(const ZLExportAgain& again, const QList<ZLExportTarget>& targets)
{
    const auto outcome = again.write(targets, ZLDocumentExportInput::of(m_window.document()));
    for (const ZLExportTarget& target : outcome.written)
        m_memory.remember(nameOfDocument(), target);
    tell(again, outcome);
}

void ZLExportAgainDisplay::tell(const ZLExportAgain& again, const ZLExportAgain::Outcome& outcome)
{
    QStringList names;
    for (const ZLExportTarget& target : outcome.written) {
        names.append(fileNameOf(target));
        m_window.messageBar().hideMessage(ZLExportDisplay::failureNameFor(target.formatName));
    }
    QStringList told;
    if (!names.isEmpty())
        told.append(tr("Exported again: %1.").arg(names.join(u", "_s)));
    else if (outcome.problems.isEmpty() && again.sessions().isEmpty())
        told.append(tr("This document has not been exported to a file yet."));
    if (!again.sessions().isEmpty())
        told.append(
            tr("Left out, as chapters in a session would come twice: %1.").arg(sessionNames(again).join(u", "_s)));
    m_window.statusLine().showPassingMessage(told.join(u' '));
    if (outcome.problems.isEmpty())
        m_window.messageBar().hideMessage(exportAgainFailureName);
    else
        m_window.messageBar().showMessage(exportAgainFailureName,
            tr("The export failed. %1").arg(outcome.problems.join(u' ')), { { tr("Dismiss"), [] { } } }, {},
            ZLMessageBar::Kind::Error);
}

QString ZLExportAgainDisplay::nameOfDocument() const
{
    return m_memory.nameOf(&m_window.document());
}

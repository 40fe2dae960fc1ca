#include "app/ui/outside/ZLOutsideNewsDisplay.h"

#include "app/ZLOutsideCommands.h"
#include "app/ui/outside/ZLOutsideTargetDisplay.h"
#include "app/ui/windows/ZLDocumentWindows.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "model/ZLTimeText.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

const QString commandElsewhereName = QStringLiteral("outsideCommandElsewhere");

}

ZLOutsideNewsDisplay::ZLOutsideNewsDisplay(ZLOutsideCommands& commands, ZLDocumentWindows& windows, QObject* parent)
    : QObject(parent)
    , m_commands(commands)
    , m_windows(windows)
{
    connect(&commands, &ZLOutsideCommands::didAddChapter, this, &ZLOutsideNewsDisplay::tellOfChapter);
    connect(&commands, &ZLOutsideCommands::didNothing, this, &ZLOutsideNewsDisplay::tellOfNothing);
    connect(
        &commands, &ZLOutsideCommands::pinDidChange, this, [this] { forgetElsewhere(m_commands.pinnedDocument()); });
}

void ZLOutsideNewsDisplay::tellOfChapter(ZLChapterDocument* document, const ZLRemoteSource& source) const
{
    const int row = document->selectedRow();
    const ZLChapterPointer chapter = document->chapterManager().chapterAtIndex(row);
    ZLChapterDocumentWindow* window = m_windows.windowOf(document);
    if (!chapter || !window)
        return;
    forgetElsewhere(document);
    // Cut to whole seconds: 00:12:31 of 00:12:31.480.
    const QString time = chapter->timeString().section(u'.', 0, 0);
    window->statusLine().showPassingMessage(
        tr("Chapter %1 at %2, from %3").arg(QString::number(row + 1), time, source.name()));
}

void ZLOutsideNewsDisplay::tellOfNothing(
    ZLChapterDocument* document, const ZLRemoteAction& action, const ZLRemoteSource& source)
{
    const QString text = tr("“%1”, from %2, went to “%3” and could do nothing there: %4.")
                             .arg(action.title(), source.name(), document->displayName(), action.obstacle());
    const auto recording = m_commands.recordingBesideTarget();
    for (ZLChapterDocument* beside : recording) {
        const auto comeHere = [this, wanted = QPointer(beside)] { m_commands.pinTo(wanted); };
        if (ZLChapterDocumentWindow* window = m_windows.windowOf(beside))
            window->messageBar().showMessage(commandElsewhereName, text,
                { { ZLOutsideTargetDisplay::itemTitle(), comeHere }, { tr("Dismiss"), [] { } } });
    }
}

void ZLOutsideNewsDisplay::forgetElsewhere(ZLChapterDocument* document) const
{
    if (ZLChapterDocumentWindow* window = m_windows.windowOf(document))
        window->messageBar().hideMessage(commandElsewhereName);
}

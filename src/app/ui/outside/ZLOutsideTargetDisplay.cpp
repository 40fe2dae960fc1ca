#include "app/ui/outside/ZLOutsideTargetDisplay.h"

#include "app/ZLApplication.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "document/ui/menus/ZLRecordingMenu.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

const QString outsideTargetPart = QStringLiteral("outsideTarget");

}

ZLOutsideTargetDisplay::ZLOutsideTargetDisplay(ZLApplication& application, QObject* parent)
    : QObject(parent)
    , m_application(application)
{
    connect(&application.outsideCommands(), &ZLOutsideCommands::targetDidChange, this, &ZLOutsideTargetDisplay::update);
}

void ZLOutsideTargetDisplay::addWindow(ZLChapterDocumentWindow& window)
{
    QMenu* menu = window.recordingMenu().menu();
    menu->addSeparator();
    QAction* item =
        ZLActionHelp::addAction(*menu, u"outsideCommandsComeHere"_s, tr("Commands From &Outside Come Here"));
    item->setCheckable(true);
    connect(item, &QAction::triggered, this, [this, &window](bool isWanted) { setPinned(window, isWanted); });
    connect(&window.statusLine(), &ZLStatusLine::partClicked, this, [this, &window](const QString& name) {
        if (name == outsideTargetPart)
            setPinned(window, m_application.outsideCommands().pinnedDocument() != &window.document());
    });
    connect(&window.document(), &ZLChapterDocument::displayNameDidChange, this, &ZLOutsideTargetDisplay::update);
    m_shown.append({ &window, item });
    update();
}

QString ZLOutsideTargetDisplay::itemTitle()
{
    return tr("Commands From Outside Come Here");
}

void ZLOutsideTargetDisplay::update()
{
    m_shown.removeIf([](const Shown& shown) { return !shown.window; });
    for (const Shown& shown : std::as_const(m_shown))
        updateWindow(shown);
}

void ZLOutsideTargetDisplay::updateWindow(const Shown& shown) const
{
    const ZLOutsideCommands& commands = m_application.outsideCommands();
    const ZLChapterDocument* document = &shown.window->document();
    const bool isPinned = commands.pinnedDocument() == document;
    shown.item->setChecked(isPinned);
    const bool hasOthers = m_application.documentController().documents().size() > 1;
    QString text;
    if (hasOthers && commands.target() == document)
        text = isPinned ? tr("Outside commands stay here") : tr("Outside commands come here");
    shown.window->statusLine().setPart(outsideTargetPart, text, reason());
}

void ZLOutsideTargetDisplay::setPinned(ZLChapterDocumentWindow& window, bool isPinned)
{
    m_application.outsideCommands().pinTo(isPinned ? &window.document() : nullptr);
    if (isPinned)
        window.statusLine().showPassingMessage(tr("Commands from outside stay here until this document is closed."));
}

QString ZLOutsideTargetDisplay::reason() const
{
    const QString who = tr("OSC, zelta send and global shortcuts act on this document.");
    if (m_application.outsideCommands().pinnedDocument())
        return who + u' ' + tr("They stay with it until it is closed. Click to let them follow the window in front.");
    const ZLDocumentController& controller = m_application.documentController();
    const ZLChapterDocument* behind = controller.firstDocument();
    if (behind && behind != controller.currentOrLastDocument())
        return who + u' '
            + tr("While another program is in front they go to “%1”. Click to keep them here.")
                  .arg(behind->displayName());
    return who + u' ' + tr("While another window of Zelta is in front they go to that. Click to keep them here.");
}

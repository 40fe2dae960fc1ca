#include "app/ui/shortcuts/ZLKeyEquivalents.h"

#include "app/ZLDocumentController.h"
#include "commands/ZLRemoteActions.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/menus/ZLRecordingMenu.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QShortcutEvent>

namespace {

/// An alert stands, and the keyboard is in no window of a document, whose own commands would be switched off by it.
bool belongsToAnAlert()
{
    const QWidget* active = QApplication::activeWindow();
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) && active
        && !qobject_cast<const ZLChapterDocumentWindow*>(active);
}

bool containsOptionKey(const QKeySequence& keys)
{
    return !keys.isEmpty() && keys[0].keyboardModifiers().testFlag(Qt::AltModifier);
}

}

ZLKeyEquivalents::ZLKeyEquivalents(ZLDocumentController& controller, ZLCommandKeys& keys, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
    , m_keys(keys)
{
    connect(&controller, &ZLDocumentController::currentDocumentDidChange, this, &ZLKeyEquivalents::update);
    connect(&controller, &ZLDocumentController::didCloseDocument, this, &ZLKeyEquivalents::update);
    connect(qApp, &QApplication::focusChanged, this,
        [this](const QWidget*, const QWidget* focused) { followFocus(focused); });
}

void ZLKeyEquivalents::addWindow(ZLChapterDocumentWindow& window)
{
    m_windows.append(&window);
    const auto commands = commandsOf(window);
    for (QAction* command : commands)
        command->installEventFilter(this);
    update();
}

bool ZLKeyEquivalents::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Shortcut)
        return QObject::eventFilter(watched, event);
    if (belongsToAnAlert())
        return true;
    const QScopedValueRollback keys(
        m_keys.hasOptionKey, std::optional(containsOptionKey(static_cast<QShortcutEvent*>(event)->key())));
    // The filter ends here, so that the command is carried out while the keys count.
    return watched->event(event);
}

void ZLKeyEquivalents::followFocus(const QWidget* focused)
{
    QWidget* window = focused ? focused->window() : nullptr;
    if (qobject_cast<ZLChapterDocumentWindow*>(window) || qobject_cast<QMessageBox*>(window))
        window = nullptr;
    if (window == m_otherWindow)
        return;
    leaveOtherWindow();
    m_otherWindow = window;
    update();
}

void ZLKeyEquivalents::leaveOtherWindow()
{
    if (!m_otherWindow)
        return;
    m_windows.removeAll(nullptr);
    for (const auto& window : std::as_const(m_windows)) {
        const auto commands = commandsOf(*window);
        for (QAction* command : commands)
            m_otherWindow->removeAction(command);
    }
}

void ZLKeyEquivalents::update()
{
    m_windows.removeAll(nullptr);
    const ZLChapterDocument* target = m_controller.currentOrLastDocument();
    for (const auto& window : std::as_const(m_windows)) {
        // With the keys of more than one window in force they would be ambiguous.
        const bool isTarget = &window->document() == target;
        const auto commands = commandsOf(*window);
        for (QAction* command : commands) {
            command->setShortcutContext(isTarget ? Qt::ApplicationShortcut : Qt::WindowShortcut);
            // A dialog shuts its document's window off, and then the keys with it unless they are its own as well.
            if (m_otherWindow && isTarget)
                m_otherWindow->addAction(command);
            else if (m_otherWindow)
                m_otherWindow->removeAction(command);
        }
    }
}

QList<QAction*> ZLKeyEquivalents::commandsOf(const ZLChapterDocumentWindow& window)
{
    QList<QAction*> commands;
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        commands.append(window.recordingMenu().actionWithTag(action.menuTag()));
    return commands;
}

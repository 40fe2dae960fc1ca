#include "app/ui/shortcuts/ZLKeyEquivalents.h"

#include "app/ZLDocumentController.h"
#include "commands/ZLRemoteActions.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/menus/ZLRecordingMenu.h"

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
    Commands commands { .document = &window.document() };
    for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
        QAction* command = window.recordingMenu().actionWithTag(action.menuTag());
        command->installEventFilter(this);
        commands.items.append(command);
    }
    m_commands.append(commands);
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
    for (const Commands& commands : std::as_const(m_commands)) {
        for (QAction* command : commands.items) {
            if (command && m_otherWindow)
                m_otherWindow->removeAction(command);
        }
    }
}

void ZLKeyEquivalents::update()
{
    m_commands.removeIf([](const Commands& commands) { return commands.items.contains(nullptr); });
    const ZLChapterDocument* target = m_controller.currentOrLastDocument();
    for (const Commands& commands : std::as_const(m_commands)) {
        // With the keys of more than one window in force they would be ambiguous.
        const bool isTarget = commands.document == target;
        for (QAction* command : commands.items) {
            command->setShortcutContext(isTarget ? Qt::ApplicationShortcut : Qt::WindowShortcut);
            // A dialog shuts its document's window off, and then the keys with it unless they are its own as well.
            if (m_otherWindow && isTarget)
                m_otherWindow->addAction(command);
            else if (m_otherWindow)
                m_otherWindow->removeAction(command);
        }
    }
}

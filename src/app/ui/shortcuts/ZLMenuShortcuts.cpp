#include "app/ui/shortcuts/ZLMenuShortcuts.h"

#include "commands/ZLRemoteActions.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/menus/ZLRecordingMenu.h"
#include "platform/hotkey/ZLHotKeyCenter.h"
#include "settings/ZLSettingsManager.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace {

/// Keeps the key that the item has when nothing is recorded.
constexpr const char* ownShortcutProperty = "ownShortcut";

}

ZLMenuShortcuts::ZLMenuShortcuts(QObject* parent)
    : QObject(parent)
{
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLShortcutsDidChange, this,
        &ZLMenuShortcuts::setupHotkeys);
    readShortcuts();
}

void ZLMenuShortcuts::followKeyboardLayout(const ZLHotKeyCenter& center)
{
    connect(&center, &ZLHotKeyCenter::keyboardLayoutDidChange, this, [this] {
        m_layout = ZLKeyboardLayout::current();
        setupHotkeys();
    });
}

void ZLMenuShortcuts::addWindow(ZLChapterDocumentWindow& window)
{
    m_windows.removeAll(nullptr);
    m_windows.append(&window);
    applyTo(window);
}

void ZLMenuShortcuts::setupHotkeys()
{
    readShortcuts();
    for (const auto& window : std::as_const(m_windows)) {
        if (window)
            applyTo(*window);
    }
}

void ZLMenuShortcuts::readShortcuts()
{
    QHash<int, QKeySequence> recorded;
    QList<QKeySequence> taken;
    for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
        const auto stored = ZLSettingsManager::keyComboForKey(action.settingsKey);
        if (!stored)
            continue;
        const auto combination = m_layout.keyCombinationForKeyCombo(ZLKeyCombo::fromShortcutDictionary(*stored));
        if (!combination || taken.contains(QKeySequence(*combination)))
            continue;
        recorded.insert(action.menuTag(), QKeySequence(*combination));
        taken.append(QKeySequence(*combination));
    }
    // What an item keeps after its clearing goes when the keys are recorded for another one.
    m_shortcuts.removeIf([&taken](QHash<int, QKeySequence>::iterator kept) { return taken.contains(kept.value()); });
    m_shortcuts.insert(recorded);
}

void ZLMenuShortcuts::applyTo(const ZLChapterDocumentWindow& window) const
{
    const auto menus = window.menuBar()->actions();
    for (const QAction* menu : menus) {
        const auto items = menu->menu() ? menu->menu()->actions() : QList<QAction*>();
        for (QAction* item : items)
            applyTo(*item);
    }
    for (auto shortcut = m_shortcuts.cbegin(); shortcut != m_shortcuts.cend(); ++shortcut)
        window.recordingMenu().actionWithTag(shortcut.key())->setShortcut(shortcut.value());
}

void ZLMenuShortcuts::applyTo(QAction& action) const
{
    if (!action.property(ownShortcutProperty).isValid())
        action.setProperty(ownShortcutProperty, action.shortcut());
    const auto own = action.property(ownShortcutProperty).value<QKeySequence>();
    const bool isTaken = !own.isEmpty() && m_shortcuts.values().contains(own);
    action.setShortcut(isTaken ? QKeySequence() : own);
}

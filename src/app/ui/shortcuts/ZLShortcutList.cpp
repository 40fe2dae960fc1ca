#include "app/ui/shortcuts/ZLShortcutList.h"

#include "app/ZLApplication.h"
#include "commands/ZLRemoteActions.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "platform/hotkey/ZLKeyboardLayout.h"
#include "settings/ZLSettingsManager.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("ZLShortcutList", text);
}

QList<ZLShortcutList::Row> rowsOfMenu(const QMenu& menu)
{
    QList<ZLShortcutList::Row> rows;
    const auto items = menu.actions();
    for (const QAction* item : items) {
        if (item->menu())
            rows += rowsOfMenu(*item->menu());
        else if (!item->shortcut().isEmpty())
            rows.append({ ZLActionHelp::firstTitle(*item),
                QKeySequence::listToString(item->shortcuts(), QKeySequence::NativeText) });
    }
    return rows;
}

QString systemKeysOf(const ZLRemoteAction& action, const ZLKeyboardLayout& layout, const ZLApplication& application)
{
    const auto hotKey = application.hotKeyForSettingsKey(action.settingsKey);
    if (hotKey && !hotKey->desktopTrigger.isEmpty())
        return hotKey->desktopTrigger;
    const auto stored = ZLSettingsManager::keyComboForKey(action.settingsKey);
    if (!stored)
        return translated(QT_TRANSLATE_NOOP("ZLShortcutList", "none"));
    QString keys = layout.textForKeyCombo(ZLKeyCombo::fromShortcutDictionary(*stored));
    if (hotKey && hotKey->state == ZLHotKey::State::Refused)
        return translated(QT_TRANSLATE_NOOP("ZLShortcutList", "%1 (refused)")).arg(keys);
    return keys;
}

}

QList<ZLShortcutList::Group> ZLShortcutList::ofMenus(const QMenuBar& menuBar)
{
    QList<Group> groups;
    const auto menus = menuBar.actions();
    for (const QAction* menu : menus) {
        const QList<Row> rows = menu->menu() ? rowsOfMenu(*menu->menu()) : QList<Row>();
        if (!rows.isEmpty())
            groups.append({ ZLActionHelp::plainTitle(menu->text()), rows });
    }
    return groups;
}

ZLShortcutList::Group ZLShortcutList::ofWholeSystem(const ZLApplication& application)
{
    const bool isOn = application.hotkeyController() != nullptr;
    Group group { isOn ? translated(QT_TRANSLATE_NOOP("ZLShortcutList", "Global Shortcuts"))
                       : translated(QT_TRANSLATE_NOOP("ZLShortcutList", "Global Shortcuts (Off)")),
        {} };
    const ZLKeyboardLayout layout = ZLKeyboardLayout::current();
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        group.rows.append({ action.title(), systemKeysOf(action, layout, application) });
    return group;
}

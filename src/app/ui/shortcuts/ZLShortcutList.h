#pragma once

#include <QList>
#include <QString>

class QMenuBar;
class ZLApplication;

/// Commands with the keys that give them, for people: as the actions themselves say, in the order of the menus.
namespace ZLShortcutList {

struct Row {
    /// "New Chapter"
    QString command;
    /// "Ctrl+Return"; several are separated by commas.
    QString keys;

    bool operator==(const Row&) const = default;
};

struct Group {
    QString title;
    QList<Row> rows;
};

/// A group for each menu, with the items that have keys. A menu without any has none.
[[nodiscard]] QList<Group> ofMenus(const QMenuBar& menuBar);

/// The six commands that can have keys in the whole system. The keys say so where there are none, and where they do not
/// work; the title says whether they are switched on.
[[nodiscard]] Group ofWholeSystem(const ZLApplication& application);

}

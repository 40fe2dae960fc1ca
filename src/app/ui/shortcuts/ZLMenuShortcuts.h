#pragma once

#include "platform/hotkey/ZLKeyboardLayout.h"

#include <QHash>
#include <QKeySequence>
#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class ZLChapterDocumentWindow;
class ZLHotKeyCenter;

/// Puts the recorded shortcuts on the command items of all windows' menus. A shortcut that is cleared stays on its item
/// until the program ends, in windows that are opened later too. A key with two meanings would have none: of two
/// commands that are recorded with the same keys the first has them, one that was cleared gives them up for good, and
/// an item whose own key they are does without as long as that lasts.
class ZLMenuShortcuts : public QObject {
    Q_OBJECT

public:
    explicit ZLMenuShortcuts(QObject* parent = nullptr);

    /// Follows the characters that the keys print; `center` has to outlive the object.
    void followKeyboardLayout(const ZLHotKeyCenter& center);

    void addWindow(ZLChapterDocumentWindow& window);
    /// Applies the stored shortcuts to all windows.
    void setupHotkeys();

private:
    void readShortcuts();
    void applyTo(const ZLChapterDocumentWindow& window) const;
    void applyTo(QAction& action) const;

    ZLKeyboardLayout m_layout = ZLKeyboardLayout::current();
    /// By the tag of the item.
    QHash<int, QKeySequence> m_shortcuts;
    QList<QPointer<ZLChapterDocumentWindow>> m_windows;
};

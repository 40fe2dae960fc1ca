#pragma once

#include "app/ui/shortcuts/ZLShortcutList.h"

#include <QDialog>

class QTreeWidget;

/// Shows which keys give which commands. It stays beside the window that it belongs to, which can be used meanwhile.
class ZLShortcutListWindow : public QDialog {
    Q_OBJECT

public:
    explicit ZLShortcutListWindow(QWidget* parent);

    /// Shows these in place of what was shown before; the row that was read stays the current one.
    void setGroups(const QList<ZLShortcutList::Group>& groups);

Q_SIGNALS:
    /// Keys are to be recorded.
    void changeRequested();

private:
    void addGroup(const ZLShortcutList::Group& group);
    [[nodiscard]] QSize fittingSize() const;

    QTreeWidget* m_list;
};

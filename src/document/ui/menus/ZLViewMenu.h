#pragma once

#include <QObject>

class QAction;
class QMenu;
class QMenuBar;

/// The View menu: the kind of time shown, and the templates drawer.
class ZLViewMenu : public QObject {
    Q_OBJECT

public:
    explicit ZLViewMenu(QMenuBar& menuBar);

    [[nodiscard]] QMenu* menu() const { return m_menu; }
    /// Its tick tells the present mode while its title names the other one.
    [[nodiscard]] QAction* absoluteTimeItem() const { return m_absoluteTimeItem; }
    [[nodiscard]] QAction* drawerItem() const { return m_drawerItem; }
    /// Takes over tick and title of the other menu's item, since all windows show the same kind of time.
    void showSameTimeAs(const ZLViewMenu& other);

Q_SIGNALS:
    void absoluteTimeRequested();
    void drawerRequested();
    void messagesRequested();

private:
    void updateAbsoluteTime();

    QMenu* m_menu;
    QAction* m_absoluteTimeItem;
    QAction* m_drawerItem;
};

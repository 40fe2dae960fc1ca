#pragma once

#include <QMenu>

class QActionGroup;
class ZLListening;

/// The menu "Listen Along": whether, and to which input.
class ZLListeningMenu : public QMenu {
    Q_OBJECT

public:
    /// `listening` has to outlive the menu.
    explicit ZLListeningMenu(ZLListening& listening, QWidget* parent = nullptr);

Q_SIGNALS:
    void switchRequested(bool on);
    /// An empty identifier stands for the default input.
    void sourceRequested(const QString& id);

private:
    void fill();
    void fillInputs();
    void addInput(const QString& id, const QString& name);

    ZLListening& m_listening;
    QAction* m_switch;
    QActionGroup* m_inputs;
};

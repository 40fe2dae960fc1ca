#pragma once

#include <QPointer>
#include <QSize>
#include <QWidget>

/// The part of a preferences window in which the pane stands. While the window moves to another size, the pane keeps
/// the one that it will have: its controls do not wander, the window uncovers or cuts off what is beside them.
class MASPreferencesStage : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Puts the pane on the stage. It has this size until it is let go.
    void showPane(QWidget& pane, QSize size);
    /// The pane is hidden and has no parent afterwards.
    void takePane();
    /// From now on the pane fills the stage.
    void letPaneFill();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QPointer<QWidget> m_pane;
    bool m_isHeld = false;
};

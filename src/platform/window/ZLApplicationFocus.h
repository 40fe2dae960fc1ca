#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWindow>

/// Whether the program is in front: whether one of its windows has the keyboard.
///
/// The toolkit's own state of the application follows the window that loses the keyboard. A window that is closed is
/// gone before it can lose anything, so that the state stays "active" while another program gets the keyboard. Here a
/// window counts only as long as it stands.
class ZLApplicationFocus : public QObject {
    Q_OBJECT

public:
    explicit ZLApplicationFocus(QObject* parent = nullptr);

    /// True only while a visible window of the program has the keyboard.
    [[nodiscard]] static bool isActive();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Comes a moment late where a window with the keyboard was closed, since the next one may be the program's, too.
    void didChange(bool isActive);

private:
    void followWindow(QWindow* window);
    void announce();

    QPointer<QWindow> m_window;
    /// Runs after the window with the keyboard has gone.
    QTimer m_closing { this };
    bool m_wasActive = false;
};

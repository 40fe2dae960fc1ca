#pragma once

#include <QObject>
#include <QVariantAnimation>

#include <optional>

class QDockWidget;
class QMainWindow;

/// Opens and closes the drawer of a window by sliding it in and out at its edge. Only the picture takes time: whether
/// the drawer is open is answered, and announced, at once.
class ZLDrawerSlide : public QObject {
    Q_OBJECT

public:
    /// `drawer` is a dock of `window`, which owns both.
    ZLDrawerSlide(QMainWindow& window, QDockWidget& drawer);

    [[nodiscard]] bool isOpen() const;
    void open();
    void close();
    /// Brings the drawer to where it is going. To be called before its width is remembered.
    void finish();

    /// Milliseconds; 0 for none. Without a call it is what the style says, and none where it cannot be seen.
    void setDuration(int milliseconds) { m_duration = milliseconds; }

    /// The drawer's own close button slides it out, too.
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Before the drawer is shown, so that it may be filled.
    void willOpen();
    void didToggle();

private:
    [[nodiscard]] int duration() const;
    void slideTo(int width);

    QMainWindow& m_window;
    QDockWidget& m_drawer;
    QVariantAnimation m_animation { this };
    std::optional<int> m_duration;
    /// The drawer's width when it is open.
    int m_openWidth = 0;
    bool m_isClosing = false;
    /// Whether the drawer's width is in the hands of the animation.
    bool m_isSliding = false;
};

#pragma once

#include <QSize>
#include <QVariantAnimation>

#include <chrono>

/// Takes a window to another size, its upper left corner staying where it is. On the way the window may have any size
/// between the two; at the end it has the limits that were asked for.
class MASWindowGlide : public QVariantAnimation {
    Q_OBJECT

public:
    struct Goal {
        QSize size;
        QSize minimum;
        QSize maximum;
    };

    /// Belongs to `window`.
    explicit MASWindowGlide(QWidget& window);

    /// From wherever the window is, a goal that was not reached yet is forgotten. Without a duration it is there at
    /// once.
    void glideTo(const Goal& goal, std::chrono::milliseconds duration);

Q_SIGNALS:
    /// The window has its new size and limits.
    void didArrive();

protected:
    void updateCurrentValue(const QVariant& size) override;

private:
    void arrive();

    QWidget& m_window;
    Goal m_goal;
};

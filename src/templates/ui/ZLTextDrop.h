#pragma once

#include <QObject>

class QDropEvent;
class QWidget;

/// Lets a widget take text that is dropped anywhere on it, where nothing inside it has a use for it. Files are none.
class ZLTextDrop : public QObject {
    Q_OBJECT

public:
    /// `target` owns it.
    explicit ZLTextDrop(QWidget& target);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void textDropped(const QString& text);

private:
    /// Whether the event is one of a drag and was dealt with.
    bool takeDrag(QDropEvent& event);
};

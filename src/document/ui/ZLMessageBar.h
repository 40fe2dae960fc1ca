#pragma once

#include <QFrame>
#include <QList>
#include <QString>

#include <functional>

class QHBoxLayout;
class QLabel;

/// A bar above the table for a message that asks for a decision: one sentence and at most three buttons. It never
/// covers the running clock and never takes the keyboard by itself. Hidden while there is no message.
class ZLMessageBar : public QFrame {
    Q_OBJECT

public:
    struct Button {
        QString text;
        /// Called after the bar is hidden, so that it may show the next message.
        std::function<void()> callback;
    };
    static constexpr qsizetype MostButtons = 3;

    explicit ZLMessageBar(QWidget* parent = nullptr);

    /// Replaces the message that is shown. Buttons after the third are left out.
    void showMessage(const QString& text, const QList<Button>& buttons);
    void hideMessage();
    /// Empty while the bar is hidden.
    [[nodiscard]] QString text() const;

Q_SIGNALS:
    void didHide();

protected:
    void changeEvent(QEvent* event) override;

private:
    void addButton(const Button& button);
    void removeButtons();
    void updateColors();
    void updateIcon();

    QHBoxLayout* m_layout;
    QLabel* m_icon;
    QLabel* m_text;
};

#pragma once

#include <QHash>
#include <QIcon>
#include <QStatusBar>
#include <QTimer>

#include <functional>

class QIcon;
class QLabel;
class QToolButton;

/// The line at the bottom of a document window says what is true now. Each part is a button that leads to the place
/// where it can be changed; a passing message stands for a few seconds in place of the next template.
class ZLStatusLine : public QStatusBar {
    Q_OBJECT

public:
    explicit ZLStatusLine(QWidget* parent = nullptr);

    /// `title` of the first template; `exists` tells an untitled one from none.
    enum class NextTemplate { Exists, Missing };
    void setNextTemplate(NextTemplate next, const QString& title = {});

    void setSaveStatus(const QString& text, const QString& toolTip);

    /// Shows a further part at the right-hand side, or changes it. `name` is its object name and comes back with
    /// partClicked(); an empty text hides the part.
    void setPart(const QString& name, const QString& text, const QString& toolTip);
    /// Shows an icon before the text of a part that is there, in the usual size unless it is told.
    void setPartIcon(const QString& name, const QIcon& icon, QSize size = {});

    /// With `action` the message carries a button. Replaces the message before.
    void showPassingMessage(
        const QString& text, const QString& actionText = {}, const std::function<void()>& action = {});
    void hidePassingMessage();
    /// Stands in place of the next template as long as it is not empty and no passing message is shown.
    void setHint(const QString& text);
    [[nodiscard]] QString hint() const;
    /// Empty while none is shown.
    [[nodiscard]] QString passingMessage() const;
    /// Milliseconds that a message without a button stays; one with a button stays twice as long.
    void setPassingMessageDuration(int milliseconds) { m_passingMilliseconds = milliseconds; }

Q_SIGNALS:
    void nextTemplateClicked();
    void saveStatusClicked();
    void partClicked(const QString& name);

private:
    QToolButton* addFlatButton(const QString& name);
    void announcePassingMessage();
    void showHintOrTemplate();

    QToolButton* m_nextTemplate;
    QLabel* m_hint;
    QLabel* m_message;
    QToolButton* m_messageButton;
    std::function<void()> m_messageAction;
    QHash<QString, QToolButton*> m_parts;
    QTimer m_passingTimer;
    int m_passingMilliseconds;
};

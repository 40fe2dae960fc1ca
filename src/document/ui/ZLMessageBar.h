#pragma once

#include <QFrame>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class QVBoxLayout;
class ZLMessageRow;

/// The place above the table for messages that ask for a decision, one below the other in the order in which they came:
/// one sentence each and at most three buttons, each with a mnemonic. It never covers the running clock and never takes
/// the keyboard by itself; goToMessages() and takeKeyboardFor() give it the keyboard, Escape gives it back without a
/// decision. Hidden while there is none.
class ZLMessageBar : public QFrame {
    Q_OBJECT

public:
    struct Button {
        QString text;
        /// Called after the message is gone, so that it may show the next one.
        std::function<void()> callback;
    };
    /// How a message looks.
    enum class Kind {
        Question, ///< Something is to be decided.
        Error, ///< Something went wrong.
    };
    static constexpr qsizetype MostButtons = 3;
    /// Further messages wait until one of these is answered, for the table needs the room.
    static constexpr qsizetype MostRows = 3;

    explicit ZLMessageBar(QWidget* parent = nullptr);

    /// `name` tells messages apart: a message takes the place of the one with the same name, and any other one stays.
    /// Buttons after the third are left out. The messages in `coveredNames` say the same with less: they are out of
    /// sight as long as this one is there, and come back when it goes and they are still true.
    void showMessage(const QString& name, const QString& text, const QList<Button>& buttons,
        const QStringList& coveredNames = {}, Kind kind = Kind::Question);
    /// Nothing happens when there is no such message.
    void hideMessage(const QString& name);

    /// The sentence of a message, whether it is in sight or not; empty when there is none of that name.
    [[nodiscard]] QString text(const QString& name) const;
    /// The sentences of the messages that are shown or wait for room, in order.
    [[nodiscard]] QStringList texts() const;

    /// Gives the keyboard to the first button; pressed again, to the first button of the next message.
    void goToMessages();
    /// Gives the keyboard to the first button of a message that is the answer to a command of the user's.
    void takeKeyboardFor(const QString& name);

Q_SIGNALS:
    /// The keyboard was in a message and has nothing to do there any more: the message is gone, or Escape was pressed.
    void keyboardReturned();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] ZLMessageRow* rowNamed(const QString& name) const;
    [[nodiscard]] QList<ZLMessageRow*> uncoveredRows() const;
    [[nodiscard]] QList<ZLMessageRow*> firstRows() const;
    void showFirstRows();
    void updateMnemonics();

    QVBoxLayout* m_layout;
    QList<ZLMessageRow*> m_rows;
};

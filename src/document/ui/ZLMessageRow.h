#pragma once

#include "document/ui/ZLMessageBar.h"

#include <QWidget>

class QBoxLayout;
class QLabel;
class ZLMnemonics;

/// One message of the message bar: a sentence and its buttons.
class ZLMessageRow : public QWidget {
    Q_OBJECT

public:
    ZLMessageRow(const QString& name, QWidget* parent);

    [[nodiscard]] const QString& name() const { return m_name; }
    [[nodiscard]] QString text() const;

    /// Replaces the sentence and the buttons.
    void setMessage(const QString& text, const QList<ZLMessageBar::Button>& buttons);
    /// The names of the messages that need not be seen beside this one.
    void setCoveredNames(const QStringList& names) { m_coveredNames = names; }
    [[nodiscard]] const QStringList& coveredNames() const { return m_coveredNames; }
    /// Its icon and its tint.
    void setKind(ZLMessageBar::Kind kind);
    /// Gives each button a letter that no other one has.
    void setMnemonics(ZLMnemonics& mnemonics) const;
    /// Lets a screen reader say the sentence.
    void announce();

    /// Gives the keyboard to the first button; false when there is none.
    bool takeKeyboard();
    [[nodiscard]] bool hasKeyboard() const;

Q_SIGNALS:
    /// A button was pressed; its callback is called when this has been handled.
    void answered(const QString& name);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void addButton(const ZLMessageBar::Button& button);
    void removeButtons();
    void updateIcon();
    void updateColors();
    void arrange();

    QString m_name;
    ZLMessageBar::Kind m_kind = ZLMessageBar::Kind::Question;
    QStringList m_coveredNames;
    /// The sentence, and the buttons beside it, or below it where there is little room.
    QBoxLayout* m_layout;
    QBoxLayout* m_buttonLayout;
    QLabel* m_icon;
    QLabel* m_text;
};

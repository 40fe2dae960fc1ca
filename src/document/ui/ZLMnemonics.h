#pragma once

#include <QSet>
#include <QString>

class QMenuBar;

/// Gives buttons letters that press them together with Alt, each letter to one button only.
class ZLMnemonics {
public:
    /// The letters that open menus stay theirs.
    void leaveToMenus(const QMenuBar& menus);

    /// The text with a mnemonic in place of the one it may have: the first letter of a word where that is free, else
    /// any letter. Unchanged where no letter is left.
    [[nodiscard]] QString withMnemonic(const QString& text);

private:
    QSet<QChar> m_taken;
};

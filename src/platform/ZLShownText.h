#pragma once

#include <QString>

/// What a line on the screen shows of a text.
namespace ZLShownText {

/// More than the widest window has room for. To lay out megabytes would hold the window up for seconds.
inline constexpr qsizetype MostCharacters = 2000;

/// The beginning of a text that is longer than MostCharacters, with an ellipsis; any other text as it is.
[[nodiscard]] inline QString shortened(const QString& text)
{
    if (text.size() <= MostCharacters)
        return text;
    // Not in the middle of a character.
    const bool isSplit = text.at(MostCharacters - 1).isHighSurrogate();
    return text.first(MostCharacters - (isSplit ? 1 : 0)) + QChar(0x2026);
}

/// A blank for each control character: the name of a file may hold line breaks, and orders to the terminal.
[[nodiscard]] inline QString asOneLine(QString text)
{
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    return text;
}

/// A reason that another sentence may follow: those of the system end without a full stop.
[[nodiscard]] inline QString withFullStop(const QString& reason)
{
    return reason.endsWith(u'.') ? reason : reason + u'.';
}

}

#pragma once

#include <QByteArray>
#include <QString>

namespace ZLMP4Texts {

/// The text in UTF-8, cut to so many bytes without a half of a character at the end.
[[nodiscard]] inline QByteArray cutUtf8(const QString& text, qsizetype most)
{
    QByteArray bytes = text.toUtf8();
    if (bytes.size() <= most)
        return bytes;
    while (most > 0 && (uchar(bytes.at(most)) & 0xC0) == 0x80)
        --most;
    return bytes.left(most);
}

}

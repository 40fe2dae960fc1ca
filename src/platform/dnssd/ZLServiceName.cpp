#include "platform/dnssd/ZLServiceName.h"

#include <QTextBoundaryFinder>

namespace {

bool disturbsOneLine(QChar character)
{
    const char16_t code = character.unicode();
    const bool turnsDirection = (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return turnsDirection || character.category() == QChar::Other_Control
        || character.category() == QChar::Separator_Line || character.category() == QChar::Separator_Paragraph;
}

}

namespace ZLServiceName {

QString cleaned(const QString& name)
{
    QString result = name;
    for (QChar& character : result) {
        if (disturbsOneLine(character))
            character = u' ';
    }
    return result;
}

QString fitting(const QString& name)
{
    QString whole = cleaned(name).trimmed();
    if (whole.toUtf8().size() <= maximumBytes)
        return whole;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, whole);
    qsizetype end = 0;
    for (qsizetype next = finder.toNextBoundary(); next > 0; next = finder.toNextBoundary()) {
        if (whole.left(next).toUtf8().size() > maximumBytes)
            break;
        end = next;
    }
    return whole.left(end).trimmed();
}

}

#include "app/ZLErrorLines.h"

#include <QTextStream>

#include <cstdio>

QString ZLErrorLines::line(const QString& message)
{
    // A file name may hold line breaks and worse, and still the reason is one line.
    QString line = message;
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    return QStringLiteral("zelta: ") + line + u'\n';
}

void ZLErrorLines::print(const QStringList& messages)
{
    QTextStream err(stderr);
    for (const QString& message : messages)
        err << line(message);
}

#include "app/ZLErrorLines.h"

#include "platform/ZLShownText.h"

#include <QTextStream>

#include <cstdio>

QString ZLErrorLines::line(const QString& message)
{
    // A file name may hold line breaks and worse, and still the reason is one line.
    return QStringLiteral("zelta: ") + ZLShownText::asOneLine(message) + u'\n';
}

void ZLErrorLines::print(const QStringList& messages)
{
    QTextStream err(stderr);
    for (const QString& message : messages)
        err << line(message);
}

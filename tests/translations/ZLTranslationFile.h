#pragma once

#include <QFile>
#include <QList>
#include <QString>
#include <QXmlStreamReader>

/// The translation file as the translators write it.
namespace ZLTranslationFile {

struct Message {
    QString context {};
    QString source {};
    QString translation {};
};

[[nodiscard]] inline QList<Message> messages()
{
    QFile file(QStringLiteral(ZELTA_TRANSLATION_FILE));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<Message> messages;
    Message message;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1StringView("name"))
            message.context = reader.readElementText();
        else if (reader.name() == QLatin1StringView("source"))
            message.source = reader.readElementText();
        else if (reader.name() == QLatin1StringView("translation"))
            messages.append({ message.context, message.source, reader.readElementText() });
    }
    return messages;
}

}

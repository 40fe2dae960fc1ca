#include "lists/forms/ZLXmlChapters.h"

#include <QCoreApplication>

namespace {

struct XmlTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLXmlChapters)
};

}

QXmlStreamReader::TokenType ZLXmlChapters::nextTag(QXmlStreamReader& reader)
{
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::DTD && !reader.entityDeclarations().isEmpty())
            reader.raiseError(XmlTexts::tr("It declares entities, which a list of chapters does not need."));
        if (token == QXmlStreamReader::StartElement || token == QXmlStreamReader::EndElement)
            return token;
    }
    return reader.tokenType();
}

QString ZLXmlChapters::textOfElement(QXmlStreamReader& reader)
{
    // Not the library's own way, which calls itself for each element inside and so fills the stack.
    QString text;
    for (int depth = 1; depth > 0 && !reader.atEnd();) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::Characters)
            text += reader.text();
        else if (token == QXmlStreamReader::StartElement)
            ++depth;
        else if (token == QXmlStreamReader::EndElement)
            --depth;
    }
    return text;
}

ZLError ZLXmlChapters::error(const QXmlStreamReader& reader)
{
    return { XmlTexts::tr("The XML is broken in line %1: %2").arg(reader.lineNumber()).arg(reader.errorString()) };
}

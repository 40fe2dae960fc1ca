#pragma once

#include "platform/ZLResult.h"

#include <QXmlStreamReader>

/// What the forms in XML share.
namespace ZLXmlChapters {

/// Goes on to the next start or end of an element, and stops at the end of the document or at an error. A document type
/// that declares entities is an error: they could be made to unfold without end.
QXmlStreamReader::TokenType nextTag(QXmlStreamReader& reader);

/// The text of the element that was just entered, with that of elements inside; the reader stands at its end then.
[[nodiscard]] QString textOfElement(QXmlStreamReader& reader);

/// What is wrong with the document, with the line.
[[nodiscard]] ZLError error(const QXmlStreamReader& reader);

}

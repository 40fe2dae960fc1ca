#include "document/shared/ZLDocumentChange.h"

void ZLDocumentChange::add(const ZLDocumentChange& other)
{
    const bool isAnyOfAll =
        (concerns(inPlace) && chapters.isEmpty()) || (other.concerns(inPlace) && other.chapters.isEmpty());
    parts |= other.parts;
    if (isAnyOfAll)
        chapters.clear();
    else
        chapters.append(other.chapters);
}

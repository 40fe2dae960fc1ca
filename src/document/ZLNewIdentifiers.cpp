#include "document/ZLNewIdentifiers.h"

#include "document/ZLDocumentFile.h"
#include "model/ZLChapter.h"
#include "model/ZLStoredValue.h"

#include <algorithm>

namespace {

bool wouldGetIdentifier(const QVariant& element)
{
    const QVariantMap stored = element.toMap();
    return ZLStoredValue::text(stored.value(ZLChapterKey::UUID)).isNull()
        && ZLChapter(stored).dictionaryRepresentation().contains(ZLChapterKey::UUID);
}

}

bool ZLNewIdentifiers::areMissingIn(QByteArrayView fileBytes)
{
    const auto contents = ZLDocumentFile::decode(fileBytes);
    return contents
        && (std::ranges::any_of(contents.value().chapters, wouldGetIdentifier)
            || std::ranges::any_of(contents.value().templates, wouldGetIdentifier));
}

#include "document/ZLDocumentSnapshot.h"

#include "document/ZLDocumentFile.h"

QByteArray ZLDocumentSnapshot::encoded() const
{
    return ZLDocumentFile::encode({
        .chapters = ZLChapterSnapshots::archivedRepresentations(chapters),
        .duration = duration,
        .templates = ZLChapterSnapshots::archivedRepresentations(templates),
        .extras = extras.whole(),
    });
}

#include "document/shared/ZLRecorderFiles.h"

#include "document/shared/ZLDocumentExtras.h"
#include "model/ZLStoredValue.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

QList<ZLRecorderFile> ZLRecorderFiles::in(const QVariant& stored)
{
    QList<ZLRecorderFile> files;
    const QVariantList entries = stored.toList().mid(0, MostFiles);
    for (const QVariant& entry : entries) {
        const QVariantMap values = entry.toMap();
        const ZLRecorderFile file { .path = values.value(u"Path"_s).toString(),
            .reading = ZLStoredValue::number(values.value(u"Reading"_s)) };
        if (!file.path.isEmpty() && std::isfinite(file.reading))
            files.append(file);
    }
    return files;
}

void ZLRecorderFiles::add(ZLDocumentExtras& extras, const ZLRecorderFile& file)
{
    const QList<ZLRecorderFile> files = in(extras.value(Key));
    const bool isThere = std::ranges::find(files, file.path, &ZLRecorderFile::path) != files.cend();
    if (isThere || files.size() >= MostFiles)
        return;
    QVariantList entries = extras.value(Key).toList();
    entries.append(QVariantMap { { u"Path"_s, file.path }, { u"Reading"_s, file.reading } });
    extras.keep(Key, entries);
}

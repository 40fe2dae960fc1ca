#include "document/ZLDocumentFile.h"

#include "model/ZLStoredValue.h"
#include "platform/archive/ZLKeyedArchiver.h"
#include "platform/archive/ZLKeyedUnarchiver.h"

#include <QCoreApplication>
#include <QVariantMap>

namespace {

const QString chaptersKey = QStringLiteral("Chapters");
const QString durationKey = QStringLiteral("Duration");
const QString templatesKey = QStringLiteral("Templates");

template <typename Dictionary>
ZLDocumentContents contentsIn(const Dictionary& entries)
{
    return {
        .chapters = entries.value(chaptersKey).toList(),
        .duration = ZLStoredValue::number(entries.value(durationKey)),
        .templates = entries.value(templatesKey).toList(),
    };
}

}

QByteArray ZLDocumentFile::encode(const ZLDocumentContents& contents)
{
    return ZLKeyedArchiver::archivedData(QVariantMap {
        { chaptersKey, contents.chapters },
        { durationKey, contents.duration },
        { templatesKey, contents.templates },
    });
}

ZLResult<ZLDocumentContents> ZLDocumentFile::decode(QByteArrayView bytes, ZLDictionaryForm form)
{
    const auto root = ZLKeyedUnarchiver::unarchivedRoot(bytes, form);
    if (!root)
        return root.error();
    if (const auto* entries = ZLArchivedDictionary::in(root.value()))
        return contentsIn(*entries);
    if (root.value().typeId() == QMetaType::QVariantMap)
        return contentsIn(root.value().toMap());
    return ZLError { QCoreApplication::translate("ZLDocumentFile", "This is not a chapter document.") };
}

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

}

QByteArray ZLDocumentFile::encode(const ZLDocumentContents& contents)
{
    return ZLKeyedArchiver::archivedData(QVariantMap {
        { chaptersKey, contents.chapters },
        { durationKey, contents.duration },
        { templatesKey, contents.templates },
    });
}

ZLResult<ZLDocumentContents> ZLDocumentFile::decode(QByteArrayView bytes)
{
    const auto root = ZLKeyedUnarchiver::unarchivedRoot(bytes);
    if (!root)
        return root.error();
    if (root.value().typeId() != QMetaType::QVariantMap)
        return ZLError { QCoreApplication::translate("ZLDocumentFile", "This is not a chapter document.") };
    const QVariantMap entries = root.value().toMap();
    return ZLDocumentContents {
        .chapters = entries.value(chaptersKey).toList(),
        .duration = ZLStoredValue::number(entries.value(durationKey)),
        .templates = entries.value(templatesKey).toList(),
    };
}

#include "document/ZLDocumentFile.h"

#include "model/ZLStoredValue.h"
#include "platform/archive/ZLKeyedArchiver.h"
#include "platform/archive/ZLKeyedUnarchiver.h"

#include <QCoreApplication>
#include <QVariantMap>

#include <cmath>

namespace {

const QString chaptersKey = QStringLiteral("Chapters");
const QString durationKey = QStringLiteral("Duration");
const QString templatesKey = QStringLiteral("Templates");

/// A clock that stood at infinity, or at no number, would give every mark that time.
double readingIn(const QVariant& stored)
{
    const double seconds = ZLStoredValue::number(stored);
    return std::isfinite(seconds) ? seconds : 0.0;
}

template <typename Dictionary>
ZLDocumentContents contentsIn(const Dictionary& entries)
{
    return {
        .chapters = entries.value(chaptersKey).toList(),
        .duration = readingIn(entries.value(durationKey)),
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

#include "document/ZLDocumentFile.h"

#include "document/shared/ZLDocumentExtras.h"
#include "model/ZLChapter.h"
#include "model/ZLStoredValue.h"
#include "platform/archive/ZLDictionaryMaps.h"
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

/// All entries but the three that this program always writes.
QVariantMap extrasIn(QVariantMap entries)
{
    for (const QString& key : { chaptersKey, durationKey, templatesKey })
        entries.remove(key);
    return entries;
}

QVariantMap extrasIn(const ZLArchivedDictionary& entries)
{
    ZLArchivedDictionary others;
    for (qsizetype index = 0; index < entries.keys.size(); ++index) {
        const QString& key = entries.keys.at(index);
        if (key == chaptersKey || key == durationKey || key == templatesKey)
            continue;
        others.keys.append(key);
        others.values.append(entries.values.at(index));
    }
    return ZLDictionaryMaps::of(others);
}

QVariant storedUUID(const QVariant& chapter)
{
    const auto* entries = ZLArchivedDictionary::in(chapter);
    return entries ? entries->value(ZLChapterKey::UUID) : chapter.toMap().value(ZLChapterKey::UUID);
}

QVariantMap notesOfWrittenChapters(const QVariantMap& notes, const QVariantList& chapters)
{
    QVariantMap written;
    for (const QVariant& chapter : chapters) {
        const auto found = notes.constFind(ZLStoredValue::text(storedUUID(chapter)));
        if (found != notes.cend())
            written.insert(found.key(), found.value());
    }
    return written;
}

QVariantMap extrasToWrite(const ZLDocumentContents& contents)
{
    QVariantMap extras = contents.extras;
    const QVariantMap notes = extras.take(ZLDocumentExtras::ChapterNotesKey).toMap();
    const QVariantMap written = notes.isEmpty() ? notes : notesOfWrittenChapters(notes, contents.chapters);
    if (!written.isEmpty())
        extras.insert(ZLDocumentExtras::ChapterNotesKey, written);
    return extras;
}

template <typename Dictionary>
ZLDocumentContents contentsIn(const Dictionary& entries)
{
    return {
        .chapters = entries.value(chaptersKey).toList(),
        .duration = readingIn(entries.value(durationKey)),
        .templates = entries.value(templatesKey).toList(),
        .extras = extrasIn(entries),
    };
}

}

QByteArray ZLDocumentFile::encode(const ZLDocumentContents& contents)
{
    QVariantMap entries = extrasToWrite(contents);
    entries.insert(chaptersKey, contents.chapters);
    entries.insert(durationKey, contents.duration);
    entries.insert(templatesKey, contents.templates);
    return ZLKeyedArchiver::archivedData(entries);
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
    return ZLError { QCoreApplication::translate("ZLDocumentFile", "This is not a Zelta document.") };
}

#pragma once

#include "platform/archive/ZLArchivedDate.h"
#include "platform/archive/ZLArchivedDictionary.h"

#include <QDateTime>
#include <QExplicitlySharedDataPointer>
#include <QList>
#include <QSharedData>
#include <QString>
#include <QVariantMap>

#include <cstddef>
#include <optional>

/// Keys of a chapter's dictionary form, which documents and templates are stored in.
namespace ZLChapterKey {
inline const QString TimeStamp = QStringLiteral("TimeStamp");
inline const QString Enabled = QStringLiteral("Enabled");
inline const QString Title = QStringLiteral("Title");
inline const QString Link = QStringLiteral("Link");
inline const QString Tags = QStringLiteral("Tags");
inline const QString Date = QStringLiteral("Date");
inline const QString UUID = QStringLiteral("UUID");
}

/// All that a chapter says, with its stored forms. A chapter shares its record with the snapshots of it, and takes a
/// copy before it changes, so that a record in a snapshot stays as it is and may be read on any thread.
struct ZLChapterRecord : public QSharedData {
    double timeStamp = 0.0;
    bool isEnabled = true;
    /// Texts may be null (absent) or empty, which is told apart when the chapter is stored.
    /// @{
    QString title = QStringLiteral("");
    QString link = QStringLiteral("");
    QString tags = QStringLiteral("");
    /// @}
    QDateTime realDate {};
    /// The date as it was read, while it is what no QDateTime says.
    std::optional<ZLArchivedDate> dateAsRead {};
    QString uuid {};

    /// Whether both say the same; a time that is no number is compared by its bits.
    [[nodiscard]] bool isSameAs(const ZLChapterRecord& other) const;
    /// The entries in the order of ZLChapterKey, up to the first null value.
    [[nodiscard]] QVariantMap dictionaryRepresentation() const;
    /// The same, sorted by key as a map is.
    [[nodiscard]] ZLArchivedDictionary archivedRepresentation() const;

private:
    /// The value of the entry that has this place in the order of ZLChapterKey.
    [[nodiscard]] QVariant entryAt(std::size_t place) const;
    /// How many entries there are before the first null value.
    [[nodiscard]] std::size_t entryCount() const;
};

/// The chapters of a list as they were at one moment, in the order of the list.
using ZLChapterSnapshot = QList<QExplicitlySharedDataPointer<const ZLChapterRecord>>;

namespace ZLChapterSnapshots {

/// Whether both lists say the same. Chapters that did not change share their records, so that this is seen soon.
[[nodiscard]] bool areSame(const ZLChapterSnapshot& left, const ZLChapterSnapshot& right);

/// The dictionaries of the chapters, as they are archived.
[[nodiscard]] QVariantList archivedRepresentations(const ZLChapterSnapshot& chapters);

}

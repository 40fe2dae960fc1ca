#pragma once

#include <QList>
#include <QString>
#include <QVariant>

class ZLDocumentExtras;

/// A file that a recorder wrote while the clock of a document followed it.
struct ZLRecorderFile {
    QString path {};
    /// What the recording clock read where the file begins, in seconds; less than 0 when the clock was started later.
    double reading = 0.0;

    bool operator==(const ZLRecorderFile&) const = default;
};

/// The files of the recorder, as a document keeps them: the show can be found again in them.
namespace ZLRecorderFiles {

/// The key at the root of a document's file: an array of dictionaries, "Path" and "Reading".
inline const QString Key = QStringLiteral("RecorderFiles");
/// What comes after them is left out.
constexpr qsizetype MostFiles = 1000;

/// Of the value under Key, in their order. What in it makes no sense is left out.
[[nodiscard]] QList<ZLRecorderFile> in(const QVariant& stored);
/// Adds it to those of the document. The same file again is not added.
void add(ZLDocumentExtras& extras, const ZLRecorderFile& file);

}

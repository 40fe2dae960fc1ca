#pragma once

#include "document/ZLDocumentParts.h"
#include "document/saving/ZLKnownFile.h"
#include "platform/ZLResult.h"

/// What another program made of a document's file, read to decide about it.
class ZLTheirVersion {
public:
    /// Fails for a file that cannot be read or is no document; the error names it. May be called on any thread.
    [[nodiscard]] static ZLResult<ZLTheirVersion> read(const QString& path);
    /// Whatever stands at `path` at this moment, since `time`, as what this program may write over: once, for what
    /// comes there later is again the work of another program. A file that cannot be read may be anything.
    [[nodiscard]] static ZLKnownFile toBeReplaced(const QString& path, const QDateTime& time);
    /// A free name for a document that leaves its file at `path` to the other program: "show 2.zelta".
    [[nodiscard]] static QString freePathBeside(const QString& path);

    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }
    [[nodiscard]] const ZLDocumentParts& parts() const { return m_parts; }
    /// The file as one that this program may write over although it has not written it.
    [[nodiscard]] ZLKnownFile asKnownFile() const { return ZLKnownFile(QList<QByteArray> { m_digest }); }

private:
    ZLTheirVersion(const QByteArray& bytes, const ZLDocumentContents& contents);

    QByteArray m_bytes;
    QByteArray m_digest;
    ZLDocumentParts m_parts;
};

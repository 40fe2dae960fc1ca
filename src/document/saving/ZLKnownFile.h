#pragma once

#include "document/saving/journal/ZLKnownVersions.h"
#include "document/saving/opening/ZLReadDocument.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>

/// What a document's file holds, as far as this program knows: what it read there or wrote there last.
class ZLKnownFile {
public:
    /// Nothing.
    ZLKnownFile() = default;
    /// A file that was read, and is as it is since `time`.
    ZLKnownFile(const ZLReadDocument& read, const QDateTime& time);
    /// A file that holds `bytes`, whose digest is `version`, since `time`.
    ZLKnownFile(const QByteArray& bytes, const QByteArray& version, const QDateTime& time);
    /// A file that cannot be read now, but was known to hold one of `versions`, the last of them most likely.
    explicit ZLKnownFile(const QList<QByteArray>& versions)
        : m_versions(versions)
    {
    }
    ~ZLKnownFile();
    ZLKnownFile(const ZLKnownFile&) = default;
    ZLKnownFile(ZLKnownFile&&) = default;
    ZLKnownFile& operator=(const ZLKnownFile&) = default;
    ZLKnownFile& operator=(ZLKnownFile&&) = default;

    /// The document as it is in the file; empty when it is to be written whatever it is.
    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }
    /// Since when they are there.
    [[nodiscard]] const QDateTime& timeOfBytes() const { return m_timeOfBytes; }
    [[nodiscard]] const ZLKnownVersions& versions() const { return m_versions; }
    /// The file as it was read, until it is written for the first time; chapters in it may lack a UUID, which this
    /// program gives them when it writes.
    [[nodiscard]] const QByteArray& readBytes() const { return m_readBytes; }

    /// The file was written, or was found to hold `bytes` already, whose digest is `version`.
    void noteWritten(const QByteArray& bytes, const QByteArray& version, const QDateTime& now);

private:
    QByteArray m_bytes;
    QByteArray m_readBytes;
    QDateTime m_timeOfBytes;
    ZLKnownVersions m_versions;
};

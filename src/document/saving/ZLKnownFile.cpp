#include "document/saving/ZLKnownFile.h"

#include "document/saving/journal/ZLJournalRecord.h"

ZLKnownFile::ZLKnownFile(const QByteArray& bytes, const QByteArray& fileBytes, const QDateTime& time)
    : m_bytes(bytes)
    , m_readBytes(fileBytes)
    , m_timeOfBytes(time)
    , m_versions(QList<QByteArray> { ZLJournalRecords::digestOf(fileBytes) })
{
}

void ZLKnownFile::noteWritten(const QByteArray& bytes, const QByteArray& version, const QDateTime& now)
{
    if (m_bytes != bytes)
        m_timeOfBytes = now;
    m_readBytes.clear();
    m_bytes = bytes;
    m_versions = QList<QByteArray> { version };
}

#include "document/saving/ZLKnownFile.h"

ZLKnownFile::ZLKnownFile(const ZLReadDocument& read, const QDateTime& time)
    : m_bytes(read.bytes)
    , m_readBytes(read.fileBytes)
    , m_timeOfBytes(time)
    , m_versions(QList<QByteArray> { read.version })
{
}

ZLKnownFile::ZLKnownFile(const QByteArray& bytes, const QByteArray& version, const QDateTime& time)
    : m_bytes(bytes)
    , m_readBytes(bytes)
    , m_timeOfBytes(time)
    , m_versions(QList<QByteArray> { version })
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

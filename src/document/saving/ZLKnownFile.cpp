#include "document/saving/ZLKnownFile.h"

#include "platform/ZLLateRelease.h"

#include <utility>

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

ZLKnownFile::~ZLKnownFile()
{
    ZLLateRelease::of(std::move(m_readBytes));
    ZLLateRelease::of(std::move(m_bytes));
}

void ZLKnownFile::noteWritten(const QByteArray& bytes, const QByteArray& version, const QDateTime& now)
{
    if (m_bytes != bytes)
        m_timeOfBytes = now;
    ZLLateRelease::of(std::exchange(m_readBytes, {}));
    ZLLateRelease::of(std::exchange(m_bytes, bytes));
    m_versions = QList<QByteArray> { version };
}

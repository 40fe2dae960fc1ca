#include "export/ui/ZLSelectedSession.h"

#include "platform/ZLBoundedFile.h"

#include <QFileInfo>

QByteArray ZLSelectedSession::bytesOf(const QString& path)
{
    const QFileInfo file(path);
    if (!file.isFile() || file.size() > MostBytes)
        return {};
    if (m_path == path && m_time == file.lastModified() && m_size == file.size())
        return m_bytes;
    const auto bytes = ZLBoundedFile::read(path, MostBytes);
    m_path = path;
    m_time = file.lastModified();
    m_size = file.size();
    m_bytes = bytes ? bytes.value() : QByteArray();
    return m_bytes;
}

#include "platform/ZLLineReader.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <unistd.h>

ZLLineReader::ZLLineReader(int descriptor, QObject* parent)
    : QObject(parent)
    , m_descriptor(descriptor)
    , m_notifier(new QSocketNotifier(descriptor, QSocketNotifier::Read, this))
{
    connect(m_notifier, &QSocketNotifier::activated, this, &ZLLineReader::readAvailable);
}

void ZLLineReader::readAvailable()
{
    // One read for each notice: a second one could block, since the descriptor may be shared with other programs and
    // so must not be made non-blocking.
    std::array<char, 4096> buffer {};
    const ssize_t size = read(m_descriptor, buffer.data(), buffer.size());
    if (size > 0)
        takeBytes(QByteArrayView(buffer.data(), size));
    else if (size == 0 || (errno != EINTR && errno != EAGAIN))
        finish();
}

void ZLLineReader::takeBytes(QByteArrayView bytes)
{
    for (const char byte : bytes) {
        if (byte == '\n')
            finishLine();
        else if (m_line.size() < LongestLine)
            m_line.append(byte);
        else
            m_isTooLong = true;
    }
}

void ZLLineReader::finishLine()
{
    if (m_line.endsWith('\r'))
        m_line.chop(1);
    const QString line = QString::fromUtf8(m_line);
    const bool isWanted = !std::exchange(m_isTooLong, false);
    m_line.clear();
    if (isWanted)
        Q_EMIT didReadLine(line);
}

void ZLLineReader::finish()
{
    m_notifier->setEnabled(false);
    if (!m_line.isEmpty())
        finishLine();
}

#include "delivery/ZLDeliveryReading.h"

#include <utility>

using namespace std::chrono_literals;

ZLDeliveryReading::ZLDeliveryReading(Reader reader, QObject* parent)
    : QObject(parent)
    , m_reader(std::move(reader))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(2s);
    connect(&m_timer, &QTimer::timeout, this, &ZLDeliveryReading::tryAgain);
    connect(&m_trying, &ZLDiskWork::didEnd, this, &ZLDeliveryReading::scheduleTry);
}

void ZLDeliveryReading::read(const QStringList& paths)
{
    if (paths.isEmpty())
        return;
    // Each time a work of its own: the one before may wait for a disk that does not answer.
    auto* work = new ZLDiskWork({}, this);
    connect(work, &ZLDiskWork::didEnd, work, &QObject::deleteLater);
    work->start(workFor(paths));
}

void ZLDeliveryReading::setUnreadable(const QStringList& paths)
{
    m_unreadable = paths;
    if (paths.isEmpty())
        m_timer.stop();
    else if (!m_timer.isActive())
        scheduleTry();
}

void ZLDeliveryReading::tryAgain()
{
    if (!m_unreadable.isEmpty() && !m_trying.isUnderWay())
        m_trying.start(workFor(m_unreadable));
}

ZLDiskWork::Work ZLDeliveryReading::workFor(const QStringList& paths)
{
    return [this, paths, reader = m_reader](const ZLDiskWork::Teller& tell) {
        for (const QString& path : paths) {
            const auto contents = reader(path);
            tell([this, path, contents] { Q_EMIT didRead(path, contents); });
        }
    };
}

void ZLDeliveryReading::scheduleTry()
{
    if (!m_unreadable.isEmpty() && !m_trying.isUnderWay())
        m_timer.start();
}

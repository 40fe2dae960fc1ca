#pragma once

#include <QList>
#include <QReadWriteLock>

class ZLOSCOutPort;

/// The outputs of a manager in their order, behind a lock. A reader holds the lock for the whole of its loop; changing
/// the list is the manager's business, and must not be asked for within such a loop.
class ZLOSCOutPortArray {
public:
    void rdlock() const { m_lock.lockForRead(); }
    void wrlock() { m_lock.lockForWrite(); }
    void unlock() const { m_lock.unlock(); }

    /// Only to be used between rdlock() and unlock().
    [[nodiscard]] const QList<ZLOSCOutPort*>& ports() const { return m_ports; }
    /// Only to be used between wrlock() and unlock().
    [[nodiscard]] QList<ZLOSCOutPort*>& changeablePorts() { return m_ports; }

private:
    mutable QReadWriteLock m_lock { QReadWriteLock::Recursive };
    QList<ZLOSCOutPort*> m_ports;
};

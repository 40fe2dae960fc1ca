#pragma once

#include "platform/ZLDiskWork.h"
#include "recorder/jack/ZLJackTransport.h"

#include <QObject>
#include <QString>

#include <memory>

/// The JACK server of this computer, or PipeWire in its place, as a client without ports. It is spoken to on a thread
/// of its own, for a server may take its time, or hang. It is never started by this, and it is looked for again and
/// again.
class ZLJackServer : public QObject {
    Q_OBJECT

public:
    ZLJackServer();
    ~ZLJackServer() override;

    void startTransport();
    void stopTransport();

    /// The server's clock now, in microseconds.
    [[nodiscard]] static quint64 microseconds();

Q_SIGNALS:
    void didFind();
    /// There is none, or none any more. Comes again with each look in vain.
    void didMiss();
    void didLook(const ZLJackTransport& transport);

private:
    struct Line;

    std::shared_ptr<Line> m_line;
    ZLDiskWork m_work;
};

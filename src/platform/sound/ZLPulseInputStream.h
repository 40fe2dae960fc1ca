#pragma once

#include "platform/sound/ZLPulseConnection.h"
#include "platform/sound/ZLSoundInput.h"

#include <memory>
#include <mutex>
#include <vector>

struct pa_stream;

/// What one source hears, block by block. The signals come from the connection's thread.
class ZLPulseInputStream : public QObject {
    Q_OBJECT

public:
    explicit ZLPulseInputStream(std::shared_ptr<ZLPulseConnection> connection);
    ~ZLPulseInputStream() override;

    /// Asks for the source with this identifier; false when that cannot even be asked.
    [[nodiscard]] bool open(const QString& id);
    [[nodiscard]] std::vector<ZLHeardBlock> takeBlocks();

Q_SIGNALS:
    /// There is something to take again.
    void didHear();
    /// The source does not exist or is gone, or the server is.
    void didFail();

private:
    void stateDidChange();
    void readEverything();
    void read(const float* samples, std::size_t count, double hostTime);

    std::shared_ptr<ZLPulseConnection> m_connection;
    pa_stream* m_stream = nullptr;

    std::mutex m_mutex;
    std::vector<ZLHeardBlock> m_blocks;
};

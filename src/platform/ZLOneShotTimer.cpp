#include "platform/ZLOneShotTimer.h"

#include <QTimer>

#include <utility>

namespace {

class ZLSystemOneShotTimer final : public ZLOneShotTimer {
public:
    ZLSystemOneShotTimer(std::chrono::milliseconds delay, std::function<void()> call)
    {
        m_timer.setSingleShot(true);
        m_timer.callOnTimeout(&m_timer, std::move(call));
        m_timer.start(delay);
    }

private:
    QTimer m_timer;
};

}

std::unique_ptr<ZLOneShotTimer> ZLStartSystemTimer(std::chrono::milliseconds delay, std::function<void()> call)
{
    return std::make_unique<ZLSystemOneShotTimer>(delay, std::move(call));
}

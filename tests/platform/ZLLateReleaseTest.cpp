#include "platform/ZLLateRelease.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <thread>

namespace {

/// Tells on which thread it goes.
class Witness {
public:
    explicit Witness(std::promise<std::thread::id>& freedOn)
        : m_freedOn(freedOn)
    {
    }
    Q_DISABLE_COPY_MOVE(Witness)
    ~Witness() { m_freedOn.set_value(std::this_thread::get_id()); }

private:
    std::promise<std::thread::id>& m_freedOn;
};

}

class ZLLateReleaseTest : public testing::Test {
protected:
    [[nodiscard]] std::shared_ptr<Witness> witness() { return std::make_shared<Witness>(m_freedOn); }
    [[nodiscard]] std::thread::id freedOn() { return m_freedOn.get_future().get(); }

    std::promise<std::thread::id> m_freedOn;
};

TEST_F(ZLLateReleaseTest, AValueGoesOnAnotherThread)
{
    ZLLateRelease::of(witness());
    EXPECT_NE(freedOn(), std::this_thread::get_id());
}

TEST_F(ZLLateReleaseTest, ALongListGoesThereAndAShortOneAtOnce)
{
    QList<std::shared_ptr<Witness>> list(ZLLateRelease::ShortList - 1);
    list.first() = witness();
    ZLLateRelease::of(std::move(list));
    EXPECT_EQ(freedOn(), std::this_thread::get_id());

    m_freedOn = {};
    QList<std::shared_ptr<Witness>> longer(ZLLateRelease::ShortList);
    longer.first() = witness();
    ZLLateRelease::of(std::move(longer));
    EXPECT_NE(freedOn(), std::this_thread::get_id());
}

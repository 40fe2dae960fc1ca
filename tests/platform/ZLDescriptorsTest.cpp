#include "platform/ZLDescriptors.h"

#include "support/ZLNoMoreDescriptors.h"
#include "support/ZLScarceDescriptors.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <sys/resource.h>

class ZLDescriptorsTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &m_former), 0); }
    void TearDown() override { setrlimit(RLIMIT_NOFILE, &m_former); }

    void setBound(rlim_t count) const
    {
        const rlimit bound { count, m_former.rlim_max };
        ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &bound), 0);
    }
    static rlim_t bound()
    {
        rlimit bound {};
        getrlimit(RLIMIT_NOFILE, &bound);
        return bound.rlim_cur;
    }

    rlimit m_former {};
};

TEST_F(ZLDescriptorsTest, TheBoundIsRaisedAsFarAsAllowedAndNeverLowered)
{
    setBound(200);
    ZLDescriptors::raiseBound();
    EXPECT_EQ(bound(), std::min(m_former.rlim_max, rlim_t(65'536)));
    const rlim_t raised = bound();
    ZLDescriptors::raiseBound();
    EXPECT_EQ(bound(), raised);
}

TEST_F(ZLDescriptorsTest, WhenHalfOfThemAreTakenTheyAreScarce)
{
    ZLScarceDescriptors scarce;
    EXPECT_TRUE(ZLDescriptors::areScarce());
    scarce.giveBackOne();
    EXPECT_FALSE(ZLDescriptors::areScarce());
}

TEST_F(ZLDescriptorsTest, WhereNoneIsFreeTheyAreScarce)
{
    const ZLNoMoreDescriptors none;
    EXPECT_TRUE(ZLDescriptors::areScarce());
}

#include "platform/ZLFileError.h"

#include <cerrno>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLFileErrorTest, ThePathStandsBeforeTheReason)
{
    EXPECT_EQ(ZLFileError::because(u"/a/show.zelta"_s, u"It is a pipe."_s).message, u"/a/show.zelta: It is a pipe."_s);
    EXPECT_EQ(ZLFileError::ofSystem(u"/a/100%1"_s, ENOSPC).message, u"/a/100%1: No space left on device"_s)
        << "a name is no pattern";
}

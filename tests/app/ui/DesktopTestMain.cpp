// The program's own application object takes the place of the plain one: it is what some of these tests are about.
#include "app/ui/ZLDesktopApplication.h"
#include "support/ZLTestHome.h"

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    const ZLTestHome home;
    if (!home.isValid())
        return 1;
    testing::InitGoogleMock(&argc, argv);
    const ZLDesktopApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

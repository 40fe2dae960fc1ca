// The main function of all test programs that do not bring one of their own.
#include "support/ZLTestHome.h"

#include <QApplication>
#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    const ZLTestHome home;
    if (!home.isValid())
        return 1;
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

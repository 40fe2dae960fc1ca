// The main function of the tests that need an X server; run_in_display.py provides it.
#include <QGuiApplication>
#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    const QGuiApplication application(argc, argv);
    if (QGuiApplication::platformName() != QLatin1StringView("xcb")) {
        qCritical("these tests need an X server: start them by run_in_display.py");
        return 1;
    }
    return RUN_ALL_TESTS();
}

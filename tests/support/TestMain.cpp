// One main for all test programs: no display is needed, and nothing outside a temporary home is read or written.
#include <QApplication>
#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace {

void moveHomeTo(const QString& home)
{
    const QByteArray base = home.toLocal8Bit();
    qputenv("HOME", base);
    qputenv("XDG_CONFIG_HOME", base + "/config");
    qputenv("XDG_STATE_HOME", base + "/state");
    qputenv("XDG_DATA_HOME", base + "/data");
    qputenv("XDG_CACHE_HOME", base + "/cache");
    qputenv("XDG_RUNTIME_DIR", base);
}

}

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    if (!home.isValid()) {
        qCritical("no temporary home for the tests: %s", qPrintable(home.errorString()));
        return 1;
    }
    moveHomeTo(home.path());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

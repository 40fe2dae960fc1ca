#include "support/ZLTestHome.h"

#include <QtGlobal>

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

ZLTestHome::ZLTestHome()
{
    if (!isValid()) {
        qCritical("no temporary home for the tests: %s", qPrintable(m_folder.errorString()));
        return;
    }
    moveHomeTo(m_folder.path());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("LANGUAGE");
    // Nothing shall be announced on the network, unless a test brings a network of its own.
    if (!qEnvironmentVariableIsSet("DBUS_SYSTEM_BUS_ADDRESS"))
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + m_folder.path().toLocal8Bit() + "/no-system-bus");
}

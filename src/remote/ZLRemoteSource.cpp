#include "remote/ZLRemoteSource.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

QString ZLRemoteSource::name() const
{
    switch (origin) {
    case ZLRemoteOrigin::OSC:
        return u"OSC"_s;
    case ZLRemoteOrigin::CommandSocket:
        return u"zelta send"_s;
    case ZLRemoteOrigin::Shortcut:
        break;
    }
    return QCoreApplication::translate("ZLRemoteSource", "a global shortcut");
}

#include "platform/hotkey/ZLPortalBus.h"

using namespace Qt::StringLiterals;

bool ZLPortalBus::startPortal(const QString& kind, const QString& answer)
{
    return startMock(QStringLiteral(ZELTA_PORTAL_MOCK), { u"--kind"_s, kind, u"--answer"_s, answer });
}

QVariant ZLPortalBus::control(const QString& method, const QVariantList& arguments)
{
    return call(u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s, u"org.zelta.Test"_s, method,
        arguments);
}

#include "platform/dnssd/ZLAvahiBus.h"

#include <QTest>

using namespace Qt::StringLiterals;

bool ZLAvahiBus::startAvahi(const QStringList& arguments)
{
    return startMock(QStringLiteral(ZELTA_AVAHI_MOCK), arguments);
}

QVariant ZLAvahiBus::control(const QString& method, const QVariantList& arguments)
{
    return call(u"org.freedesktop.Avahi"_s, u"/"_s, u"org.zelta.Test"_s, method, arguments);
}

bool ZLAvahiBus::comesTrue(const std::function<bool()>& condition)
{
    constexpr int deadlineMilliseconds = 10000;
    return QTest::qWaitFor(condition, deadlineMilliseconds);
}

bool ZLAvahiBus::hears(const QString& line)
{
    return comesTrue([&] { return log().contains(line); });
}

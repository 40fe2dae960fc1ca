#include "platform/activity/ZLActivityBus.h"

#include <QTest>

using namespace Qt::StringLiterals;

const QString ZLActivityBus::Logind = QStringLiteral("org.freedesktop.login1");
const QString ZLActivityBus::SessionManager = QStringLiteral("org.gnome.SessionManager");
const QString ZLActivityBus::Portal = QStringLiteral("org.freedesktop.portal.Desktop");

bool ZLActivityBus::startSystem(const QStringList& services)
{
    return startMock(QStringLiteral(ZELTA_INHIBITION_MOCK), services);
}

QVariant ZLActivityBus::control(const QString& method, const QVariantList& arguments)
{
    return call(u"org.zelta.Test"_s, u"/control"_s, u"org.zelta.Test"_s, method, arguments);
}

bool ZLActivityBus::comesTrue(const std::function<bool()>& condition)
{
    constexpr int deadlineMilliseconds = 10000;
    return QTest::qWaitFor(condition, deadlineMilliseconds);
}

bool ZLActivityBus::holds(const QStringList& lines)
{
    QStringList found;
    const bool isSame = comesTrue([&] { return (found = held()) == lines; });
    if (!isSame)
        qWarning("held: %s", qPrintable(found.join(u" | "_s)));
    return isSame;
}

#include "settings/ZLOSCDestination.h"

using namespace Qt::StringLiterals;

std::optional<ZLOSCDestination> ZLOSCDestination::fromText(QStringView text)
{
    text = text.trimmed();
    const qsizetype colon = text.lastIndexOf(u':');
    if (colon < 0)
        return std::nullopt;
    bool isNumber = false;
    const quint16 port = text.sliced(colon + 1).toUShort(&isNumber);
    QStringView host = text.first(colon).trimmed();
    const bool isBracketed = host.startsWith(u'[') && host.endsWith(u']');
    if (isBracketed)
        host = host.sliced(1).chopped(1);
    // Without brackets the end of an IPv6 address and the beginning of the port cannot be told apart.
    const bool isAmbiguous = !isBracketed && host.contains(u':');
    if (!isNumber || port == 0 || host.isEmpty() || isAmbiguous)
        return std::nullopt;
    return ZLOSCDestination { host.toString(), port };
}

QString ZLOSCDestination::text() const
{
    return (host.contains(u':') ? u"[%1]:%2"_s : u"%1:%2"_s).arg(host, QString::number(port));
}

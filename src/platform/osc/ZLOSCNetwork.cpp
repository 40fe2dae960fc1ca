#include "platform/osc/ZLOSCNetwork.h"

#include <QNetworkInterface>

using namespace Qt::StringLiterals;

namespace {

constexpr int mappedPrefixLength = 96;

bool isMappedIPv4(const QHostAddress& address)
{
    if (address.protocol() != QAbstractSocket::IPv6Protocol)
        return false;
    static const std::pair<QHostAddress, int> mapped(QHostAddress(u"::ffff:0:0"_s), mappedPrefixLength);
    return address.isInSubnet(mapped);
}

int bitsOf(const QHostAddress& address)
{
    return address.protocol() == QAbstractSocket::IPv4Protocol ? 32 : 128;
}

QHostAddress withoutScope(QHostAddress address)
{
    if (address.protocol() == QAbstractSocket::IPv6Protocol)
        address.setScopeId({});
    return address;
}

/// A scope is written as the name of an interface or as its number.
int interfaceOfScope(const QString& scope)
{
    bool isNumber = false;
    const int index = scope.toInt(&isNumber);
    return isNumber ? index : QNetworkInterface::interfaceIndexFromName(scope);
}

bool scopesAgree(const QString& wanted, const QString& given)
{
    return wanted.isEmpty() || wanted == given
        || (!given.isEmpty() && interfaceOfScope(wanted) != 0 && interfaceOfScope(wanted) == interfaceOfScope(given));
}

QStringView withoutBrackets(QStringView text)
{
    return text.startsWith(u'[') && text.endsWith(u']') ? text.sliced(1).chopped(1) : text;
}

}

QHostAddress ZLOSCPlainAddress(const QHostAddress& address)
{
    return isMappedIPv4(address) ? QHostAddress(address.toIPv4Address()) : address;
}

std::optional<ZLOSCNetwork> ZLOSCNetwork::fromText(QStringView text)
{
    text = text.trimmed();
    const qsizetype slash = text.indexOf(u'/');
    const QString host = withoutBrackets(slash < 0 ? text : text.first(slash)).toString();
    const QHostAddress given(host);
    // A number alone would be read as an address of which only the last byte was meant.
    const bool isComplete = host.contains(u':') || host.count(u'.') == 3;
    if (given.isNull() || !isComplete)
        return std::nullopt;
    bool isNumber = true;
    int length = slash < 0 ? bitsOf(given) : text.sliced(slash + 1).toInt(&isNumber);
    const QHostAddress plain = ZLOSCPlainAddress(given);
    if (bitsOf(plain) != bitsOf(given))
        length -= mappedPrefixLength;
    if (!isNumber || length < 0 || length > bitsOf(plain))
        return std::nullopt;
    return ZLOSCNetwork { plain, length };
}

QString ZLOSCNetwork::text() const
{
    const QString host = address.toString();
    return prefixLength == bitsOf(address) ? host : host + u'/' + QString::number(prefixLength);
}

bool ZLOSCNetwork::contains(const QHostAddress& sender) const
{
    const QHostAddress plain = ZLOSCPlainAddress(sender);
    return plain.protocol() == address.protocol() && scopesAgree(address.scopeId(), plain.scopeId())
        && withoutScope(plain).isInSubnet(withoutScope(address), prefixLength);
}

bool ZLOSCNetwork::isAddressItself(const QHostAddress& sender) const
{
    return ZLOSCNetwork { address, bitsOf(address) }.contains(sender);
}

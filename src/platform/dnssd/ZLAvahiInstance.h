#pragma once

#include <QString>
#include <QVariantList>

#include <tuple>

/// One service as it is seen on one network interface by one protocol. The numbers are Avahi's, the texts as announced.
struct ZLAvahiInstance {
    int interface = -1;
    int protocol = -1;
    QString name;
    QString type;
    QString domain;

    /// As Avahi's methods and signals name it.
    [[nodiscard]] QVariantList asArguments() const { return { interface, protocol, name, type, domain }; }

    friend bool operator<(const ZLAvahiInstance& left, const ZLAvahiInstance& right)
    {
        return left.order() < right.order();
    }

private:
    [[nodiscard]] std::tuple<const QString&, const QString&, const QString&, int, int> order() const
    {
        return { name, type, domain, interface, protocol };
    }
};

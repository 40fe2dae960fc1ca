#pragma once

#include <QHostAddress>
#include <QString>

/// A service that a program announces on the network. Names come from strangers: they are to be shown as plain text.
struct ZLFoundService {
    /// Unique among the services of its type, fit for one line of a window.
    QString name;
    QString hostName;
    /// An IPv4 address where there is one; a link-local IPv6 address carries its scope.
    QHostAddress address;
    quint16 port = 0;
    /// Announced by a program on this computer, which may or may not be this one: see ZLServicePublisher::announces.
    bool isLocal = false;

    friend bool operator==(const ZLFoundService&, const ZLFoundService&) = default;
};

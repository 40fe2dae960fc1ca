#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <variant>

/// OSC "nil" (N): an argument that says there is no value.
struct ZLOSCNil {
    bool operator==(const ZLOSCNil&) const = default;
};

/// OSC "infinitum" or "impulse" (I): an argument without a number.
struct ZLOSCInfinitum {
    bool operator==(const ZLOSCInfinitum&) const = default;
};

/// OSC time tag (t): 32 bits of seconds since 1900 and 32 bits of their fraction; 1 means "immediately".
struct ZLOSCTimeTag {
    quint64 value = 1;
    bool operator==(const ZLOSCTimeTag&) const = default;
};

/// An argument of four bytes that is carried but not interpreted: a character (c), a colour (r) or a MIDI message (m).
struct ZLOSCOpaque {
    char tag = 'c';
    quint32 bits = 0;
    bool operator==(const ZLOSCOpaque&) const = default;
};

/// One argument. A symbol (S) is a string, a string is UTF-8 on the wire and a QByteArray is a blob.
using ZLOSCArgument = std::variant<qint32, qint64, float, double, QString, QByteArray, bool, ZLOSCNil, ZLOSCInfinitum,
    ZLOSCTimeTag, ZLOSCOpaque>;

/// An address and its arguments, as one Open Sound Control message carries them.
class ZLOSCMessage {
public:
    ZLOSCMessage() = default;
    explicit ZLOSCMessage(QString address, QList<ZLOSCArgument> arguments = {});

    [[nodiscard]] const QString& address() const { return m_address; }
    [[nodiscard]] const QList<ZLOSCArgument>& arguments() const { return m_arguments; }

    /// The first argument as a number. Integers, floats and doubles count as they are, true as 1, false as 0, and a
    /// string by the number it begins with. Everything else, and no argument at all, is 0. A float may be NaN.
    [[nodiscard]] double floatValue() const;

    /// The message in one line for a log: control characters are escaped and a long message is cut.
    [[nodiscard]] QString description() const;

    bool operator==(const ZLOSCMessage&) const = default;

private:
    QString m_address;
    QList<ZLOSCArgument> m_arguments;
};

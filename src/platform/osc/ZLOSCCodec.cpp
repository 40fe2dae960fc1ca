#include "platform/osc/ZLOSCCodec.h"

#include "platform/osc/ZLOSCByteReader.h"

#include <QCoreApplication>

#include <bit>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView bundleMark("#bundle\0", 8);

void appendPadding(QByteArray& bytes)
{
    while (bytes.size() % 4 != 0)
        bytes.append('\0');
}

template <typename Integer>
void appendInteger(QByteArray& bytes, Integer value)
{
    const Integer swapped = qToBigEndian(value);
    bytes.append(reinterpret_cast<const char*>(&swapped), sizeof swapped);
}

void appendText(QByteArray& bytes, const QString& text)
{
    QByteArray utf8 = text.toUtf8();
    utf8.removeIf([](char byte) { return byte == '\0'; });
    bytes.append(utf8).append('\0');
    appendPadding(bytes);
}

/// Gives the type tag of an argument and appends its bytes.
struct ArgumentEncoder {
    QByteArray& data;

    char operator()(qint32 value) const { return appendInteger(data, value), 'i'; }
    char operator()(qint64 value) const { return appendInteger(data, value), 'h'; }
    char operator()(float value) const { return appendInteger(data, std::bit_cast<quint32>(value)), 'f'; }
    char operator()(double value) const { return appendInteger(data, std::bit_cast<quint64>(value)), 'd'; }
    char operator()(const QString& value) const { return appendText(data, value), 's'; }
    char operator()(const QByteArray& value) const
    {
        appendInteger(data, static_cast<qint32>(value.size()));
        data.append(value);
        appendPadding(data);
        return 'b';
    }
    char operator()(bool value) const { return value ? 'T' : 'F'; }
    char operator()(ZLOSCNil) const { return 'N'; }
    char operator()(ZLOSCInfinitum) const { return 'I'; }
    char operator()(ZLOSCTimeTag value) const { return appendInteger(data, value.value), 't'; }
    char operator()(ZLOSCOpaque value) const { return appendInteger(data, value.bits), value.tag; }
};

/// The bytes of a message; empty when it has no proper address or becomes too large.
QByteArray messageBytes(const ZLOSCMessage& message)
{
    if (!message.address().startsWith(u'/') || message.arguments().size() > ZLOSCCodec::mostArguments)
        return {};
    QByteArray tags(",");
    QByteArray data;
    for (const ZLOSCArgument& argument : message.arguments()) {
        tags.append(std::visit(ArgumentEncoder { data }, argument));
        if (data.size() > ZLOSCCodec::largestDatagram)
            return {};
    }
    QByteArray bytes;
    appendText(bytes, message.address());
    bytes.append(tags).append('\0');
    appendPadding(bytes);
    bytes.append(data);
    return bytes.size() <= ZLOSCCodec::largestDatagram ? bytes : QByteArray();
}

template <typename Argument, typename Value>
std::optional<ZLOSCArgument> argumentOf(const std::optional<Value>& value)
{
    return value ? std::optional<ZLOSCArgument>(Argument(*value)) : std::nullopt;
}

template <typename Float, typename Bits>
std::optional<ZLOSCArgument> floatOf(const std::optional<Bits>& bits)
{
    return bits ? std::optional<ZLOSCArgument>(std::bit_cast<Float>(*bits)) : std::nullopt;
}

std::optional<ZLOSCArgument> textOf(const std::optional<QByteArrayView>& text)
{
    return text ? std::optional<ZLOSCArgument>(QString::fromUtf8(*text)) : std::nullopt;
}

/// The argument of that type tag; nothing when the tag is unknown, so that its size is too, or the bytes do not
/// suffice.
std::optional<ZLOSCArgument> takeArgument(char tag, ZLOSCByteReader& reader)
{
    switch (tag) {
    case 'i':
        return argumentOf<qint32>(reader.takeInteger<qint32>());
    case 'h':
        return argumentOf<qint64>(reader.takeInteger<qint64>());
    case 'f':
        return floatOf<float>(reader.takeInteger<quint32>());
    case 'd':
        return floatOf<double>(reader.takeInteger<quint64>());
    case 's':
    case 'S':
        return textOf(reader.takeText());
    case 'b': {
        const std::optional<QByteArrayView> blob = reader.takeBlob();
        return blob ? std::optional<ZLOSCArgument>(blob->toByteArray()) : std::nullopt;
    }
    case 'T':
        return true;
    case 'F':
        return false;
    case 'N':
        return ZLOSCNil();
    case 'I':
        return ZLOSCInfinitum();
    case 't': {
        const std::optional<quint64> time = reader.takeInteger<quint64>();
        return time ? std::optional<ZLOSCArgument>(ZLOSCTimeTag { *time }) : std::nullopt;
    }
    case 'c':
    case 'r':
    case 'm': {
        const std::optional<quint32> bits = reader.takeInteger<quint32>();
        return bits ? std::optional<ZLOSCArgument>(ZLOSCOpaque { tag, *bits }) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

struct CodecTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLOSCCodec)
};

/// Takes one datagram apart. Each function gives the reason why it failed, or an empty text.
class DatagramDecoder {
public:
    QString decodeElement(QByteArrayView bytes, int depth)
    {
        if (++m_elements > ZLOSCCodec::mostElements)
            return CodecTexts::tr("too many elements in a bundle");
        if (bytes.isEmpty() || bytes.size() % 4 != 0)
            return CodecTexts::tr("the size is not a multiple of four");
        return bytes.startsWith(bundleMark) ? decodeBundle(bytes.sliced(bundleMark.size()), depth + 1)
                                            : decodeMessage(bytes);
    }

    QList<ZLOSCMessage> takeMessages() { return std::move(m_messages); }

private:
    QString decodeBundle(QByteArrayView bytes, int depth)
    {
        if (depth > ZLOSCCodec::deepestBundle)
            return CodecTexts::tr("bundles are nested too deeply");
        ZLOSCByteReader reader(bytes);
        if (!reader.takeInteger<quint64>())
            return CodecTexts::tr("a bundle ends before its time");
        while (!reader.isAtEnd()) {
            const std::optional<qint32> size = reader.takeInteger<qint32>();
            const std::optional<QByteArrayView> element = size && *size > 0 ? reader.take(*size) : std::nullopt;
            if (!element)
                return CodecTexts::tr("the size of a bundle's element does not fit");
            if (QString fault = decodeElement(*element, depth); !fault.isEmpty())
                return fault;
        }
        return {};
    }

    QString decodeMessage(QByteArrayView bytes)
    {
        ZLOSCByteReader reader(bytes);
        const std::optional<QByteArrayView> address = reader.takeText();
        if (!address || !address->startsWith('/') || !address->isValidUtf8())
            return CodecTexts::tr("no proper address");
        QList<ZLOSCArgument> arguments;
        // Old senders leave out the type tags of a message without arguments.
        if (!reader.isAtEnd()) {
            const std::optional<QByteArrayView> tags = reader.takeText();
            if (!tags || !tags->startsWith(','))
                return CodecTexts::tr("no proper type tags");
            if (QString fault = decodeArguments(tags->sliced(1), reader, arguments); !fault.isEmpty())
                return fault;
        }
        m_messages.append(ZLOSCMessage(QString::fromUtf8(*address), std::move(arguments)));
        return {};
    }

    static QString decodeArguments(QByteArrayView tags, ZLOSCByteReader& reader, QList<ZLOSCArgument>& arguments)
    {
        if (tags.size() > ZLOSCCodec::mostArguments)
            return CodecTexts::tr("too many arguments");
        int openArrays = 0;
        for (const char tag : tags) {
            if (tag == '[' || tag == ']') {
                openArrays += tag == '[' ? 1 : -1;
                if (openArrays < 0)
                    return CodecTexts::tr("an array is closed that is not open");
                continue;
            }
            std::optional<ZLOSCArgument> argument = takeArgument(tag, reader);
            if (!argument)
                return CodecTexts::tr("an argument is unknown or incomplete");
            arguments.append(std::move(*argument));
        }
        if (openArrays != 0)
            return CodecTexts::tr("an array is not closed");
        return reader.isAtEnd() ? QString() : CodecTexts::tr("bytes follow the last argument");
    }

    QList<ZLOSCMessage> m_messages;
    int m_elements = 0;
};

ZLError tooLarge()
{
    return ZLError { CodecTexts::tr("the message has no proper address or is too large for a datagram") };
}

}

ZLResult<QByteArray> ZLOSCCodec::encode(const ZLOSCMessage& message)
{
    QByteArray bytes = messageBytes(message);
    return bytes.isEmpty() ? ZLResult<QByteArray>(tooLarge()) : ZLResult<QByteArray>(std::move(bytes));
}

ZLResult<QList<ZLOSCMessage>> ZLOSCCodec::decode(QByteArrayView datagram)
{
    if (datagram.size() > largestDatagram)
        return ZLError { CodecTexts::tr("the datagram is too large") };
    DatagramDecoder decoder;
    if (QString fault = decoder.decodeElement(datagram, 0); !fault.isEmpty())
        return ZLError { std::move(fault) };
    return decoder.takeMessages();
}

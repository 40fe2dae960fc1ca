#include "platform/osc/ZLOSCMessage.h"

#include <QCoreApplication>

#include <charconv>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestDescribedText = 80;
constexpr qsizetype mostDescribedArguments = 8;

/// Without this check "info" and "nancy" would be read as infinity and as not a number.
bool beginsLikeANumber(QByteArrayView text)
{
    if (text.startsWith('-') || text.startsWith('+'))
        text = text.sliced(1);
    return !text.isEmpty() && (text.front() == '.' || (text.front() >= '0' && text.front() <= '9'));
}

double numberAtTheStartOf(const QString& string)
{
    const QByteArray trimmed = QStringView(string).left(longestDescribedText).trimmed().toUtf8();
    QByteArrayView text = trimmed;
    if (!beginsLikeANumber(text))
        return 0;
    if (text.startsWith('+'))
        text = text.sliced(1);
    double number = 0;
    const auto [end, fault] = std::from_chars(text.begin(), text.end(), number);
    return fault == std::errc() ? number : 0;
}

struct NumberOfArgument {
    double operator()(qint32 value) const { return value; }
    double operator()(qint64 value) const { return static_cast<double>(value); }
    double operator()(float value) const { return value; }
    double operator()(double value) const { return value; }
    double operator()(bool value) const { return value ? 1 : 0; }
    double operator()(const QString& value) const { return numberAtTheStartOf(value); }
    template <typename Other>
    double operator()(const Other&) const
    {
        return 0;
    }
};

QString escapedForLog(const QString& text)
{
    QString escaped;
    for (const QChar character : QStringView(text).left(longestDescribedText)) {
        if (character.isPrint() || character.isSurrogate())
            escaped += character;
        else
            escaped += u"\\u%1"_s.arg(character.unicode(), 4, 16, '0'_L1);
    }
    return text.size() > longestDescribedText ? escaped + u'…' : escaped;
}

struct MessageTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLOSCMessage)
};

struct DescriptionOfArgument {
    QString operator()(qint32 value) const { return QString::number(value); }
    QString operator()(qint64 value) const { return QString::number(value); }
    QString operator()(float value) const { return QString::number(value); }
    QString operator()(double value) const { return QString::number(value); }
    QString operator()(bool value) const { return value ? u"true"_s : u"false"_s; }
    QString operator()(const QString& value) const { return u'"' + escapedForLog(value) + u'"'; }
    QString operator()(const QByteArray& value) const { return MessageTexts::tr("blob of %1 bytes").arg(value.size()); }
    QString operator()(ZLOSCNil) const { return u"nil"_s; }
    QString operator()(ZLOSCInfinitum) const { return u"infinitum"_s; }
    QString operator()(ZLOSCTimeTag value) const { return MessageTexts::tr("time tag %1").arg(value.value, 0, 16); }
    QString operator()(ZLOSCOpaque value) const
    {
        return u"%1 %2"_s.arg(QLatin1Char(value.tag)).arg(value.bits, 8, 16, '0'_L1);
    }
};

}

ZLOSCMessage::ZLOSCMessage(QString address, QList<ZLOSCArgument> arguments)
    : m_address(std::move(address))
    , m_arguments(std::move(arguments))
{
}

double ZLOSCMessage::floatValue() const
{
    return m_arguments.isEmpty() ? 0 : std::visit(NumberOfArgument(), m_arguments.front());
}

QString ZLOSCMessage::description() const
{
    QString text = escapedForLog(m_address);
    for (const ZLOSCArgument& argument : m_arguments.first(qMin(m_arguments.size(), mostDescribedArguments)))
        text += u' ' + std::visit(DescriptionOfArgument(), argument);
    return m_arguments.size() > mostDescribedArguments ? text + u" …"_s : text;
}

#include "settings/ZLSettingsText.h"

#include "settings/ZLSettingsDictionary.h"

#include <QStringList>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView generalSection("General");
constexpr QByteArrayView escapedGeneralSection("%General");
const QByteArray invalidMark = QByteArrayLiteral("@Invalid()");

/// The parts that commas separate, without quotes and escapes. The text may hold bytes, one a character.
class PartReader {
public:
    explicit PartReader(const QString& text)
        : m_text(text)
    {
    }

    QStringList parts()
    {
        while (m_at < m_text.size())
            takeCharacter();
        finishPart();
        return m_parts;
    }

private:
    void takeCharacter()
    {
        const QChar character = m_text.at(m_at++);
        if (character == u'"')
            m_isQuoted = !m_isQuoted;
        else if (character == u'\\')
            takeEscape();
        else if (character == u',' && !m_isQuoted)
            finishPart();
        // A semicolon outside of quotes begins a remark.
        else if (character == u';' && !m_isQuoted)
            m_at = m_text.size();
        else
            append(character, !m_isQuoted && character.isSpace());
    }

    void takeEscape()
    {
        static const QString letters = u"abfnrtv"_s;
        static const QString meanings = u"\a\b\f\n\r\t\v"_s;
        if (m_at >= m_text.size())
            return;
        const QChar character = m_text.at(m_at);
        if (character == u'x') {
            ++m_at;
            append(QChar(takeDigits(16)), false);
        } else if (character >= u'0' && character <= u'7') {
            append(QChar(takeDigits(8)), false);
        } else {
            ++m_at;
            const qsizetype found = letters.indexOf(character);
            append(found < 0 ? character : meanings.at(found), false);
        }
    }

    char16_t takeDigits(int base)
    {
        uint number = 0;
        bool isDigit = true;
        while (m_at < m_text.size()) {
            const uint digit = QString(m_text.at(m_at)).toUInt(&isDigit, base);
            if (!isDigit)
                break;
            number = (number * uint(base) + digit) & 0xffffU;
            ++m_at;
        }
        return char16_t(number);
    }

    /// Blanks outside of quotes count only between other characters.
    void append(QChar character, bool isBlank)
    {
        if (isBlank && m_part.isEmpty())
            return;
        m_part += character;
        if (!isBlank)
            m_length = m_part.size();
    }

    void finishPart()
    {
        m_parts.append(m_part.first(m_length));
        m_part.clear();
        m_length = 0;
    }

    const QString m_text;
    qsizetype m_at = 0;
    bool m_isQuoted = false;
    QString m_part = u""_s;
    qsizetype m_length = 0;
    QStringList m_parts;
};

std::optional<QByteArray> bytesInside(const QString& text, QLatin1StringView mark)
{
    if (!text.startsWith(mark) || !text.endsWith(u')'))
        return std::nullopt;
    return text.sliced(mark.size()).chopped(1).toLatin1();
}

QVariant valueOfPart(const QString& part)
{
    if (!part.startsWith(u'@'))
        return part;
    if (part.startsWith("@@"_L1))
        return part.sliced(1);
    if (const auto bytes = bytesInside(part, "@ByteArray("_L1))
        return *bytes;
    if (const auto bytes = bytesInside(part, "@String("_L1))
        return QString::fromUtf8(*bytes);
    if (const auto bytes = bytesInside(part, "@Variant("_L1))
        return ZLSettingsDictionary::decoded(*bytes);
    return {};
}

bool needsQuotes(const QString& text)
{
    return text != text.trimmed() || text.contains(u';') || text.contains(u',') || text.contains(u'=');
}

/// Hexadecimal digits that follow would be read as part of an escape, so they are escaped too.
QString escaped(const QString& text)
{
    QString result;
    bool isAfterEscape = false;
    for (const QChar character : text) {
        const bool isPlain = character.unicode() >= 0x20 && character.unicode() < 0x7f;
        const bool isDigit = isPlain && QString("0123456789abcdefABCDEF"_L1).contains(character);
        const bool needsNumber = (!isPlain && character.category() == QChar::Other_Control) || character.isSurrogate()
            || (isAfterEscape && isDigit);
        if (character == u'"' || character == u'\\')
            result += u'\\';
        result += needsNumber ? u"\\x"_s + QString::number(character.unicode(), 16) : QString(character);
        isAfterEscape = needsNumber;
    }
    return result;
}

QByteArray quotedIfNeeded(const QString& text)
{
    const QString plain = escaped(text);
    return (needsQuotes(text) ? u'"' + plain + u'"' : plain).toUtf8();
}

/// Bytes go one a character, and each that is no plain character by its number.
QByteArray textOfBytes(QLatin1StringView mark, const QByteArray& bytes)
{
    QByteArray result = "\"" + QByteArray(mark.data(), mark.size());
    for (const char byte : bytes)
        result += "\\x" + QByteArray::number(uint(uchar(byte)), 16);
    return result + ")\"";
}

QByteArray textOfString(const QString& text)
{
    return quotedIfNeeded(text.startsWith(u'@') ? u'@' + text : text);
}

QString unescapedName(const QByteArray& name)
{
    QString result;
    for (qsizetype at = 0; at < name.size(); ++at) {
        const qsizetype digits = name.at(at) != '%' ? 0 : name.mid(at + 1, 1) == "U" ? 4 : 2;
        const qsizetype begin = at + (digits == 4 ? 2 : 1);
        bool isNumber = false;
        const uint code = name.mid(begin, digits).toUInt(&isNumber, 16);
        if (digits > 0 && isNumber) {
            result += QChar(char16_t(code));
            at = begin + digits - 1;
        } else {
            result += name.at(at) == '\\' ? u'/' : QChar(QLatin1Char(name.at(at)));
        }
    }
    return result;
}

QByteArray escapedName(const QString& name)
{
    QByteArray result;
    for (const QChar character : name) {
        const char16_t code = character.unicode();
        const bool isPlain = code < 0x80 && (character.isLetterOrNumber() || u"_-."_s.contains(character));
        if (isPlain)
            result += char(code);
        else if (character == u'/')
            result += '\\';
        else
            result += code < 0x100 ? "%" + QByteArray::number(code, 16).rightJustified(2, '0').toUpper()
                                   : "%U" + QByteArray::number(code, 16).rightJustified(4, '0').toUpper();
    }
    return result;
}

}

QVariant ZLSettingsText::value(const QByteArray& text)
{
    const QStringList parts = PartReader(QString::fromUtf8(text)).parts();
    if (parts.size() == 1)
        return valueOfPart(parts.first());
    QStringList texts;
    for (const QString& part : parts)
        texts.append(valueOfPart(part).toString());
    return texts;
}

QByteArray ZLSettingsText::text(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QByteArray:
        return textOfBytes("@ByteArray("_L1, value.toByteArray());
    case QMetaType::QVariantMap:
        return textOfBytes("@Variant("_L1, ZLSettingsDictionary::encoded(value.toMap()));
    case QMetaType::QStringList: {
        QByteArrayList parts;
        const QStringList texts = value.toStringList();
        for (const QString& text : texts)
            parts.append(textOfString(text));
        return texts.isEmpty() ? invalidMark : parts.join(", ");
    }
    default:
        return value.isValid() ? textOfString(value.toString()) : invalidMark;
    }
}

QString ZLSettingsText::key(const QByteArray& sectionName, const QByteArray& keyName)
{
    if (sectionName.isEmpty() || sectionName.compare(generalSection, Qt::CaseInsensitive) == 0)
        return unescapedName(keyName);
    if (sectionName.compare(escapedGeneralSection, Qt::CaseInsensitive) == 0)
        return u"General/"_s + unescapedName(keyName);
    return unescapedName(sectionName) + u'/' + unescapedName(keyName);
}

QByteArray ZLSettingsText::sectionName(const QString& key)
{
    const qsizetype slash = key.indexOf(u'/');
    const QByteArray name = slash < 0 ? QByteArray() : escapedName(key.first(slash));
    if (name.isEmpty())
        return generalSection.toByteArray();
    return name.compare(generalSection, Qt::CaseInsensitive) == 0 ? escapedGeneralSection.toByteArray() : name;
}

QByteArray ZLSettingsText::keyName(const QString& key)
{
    return escapedName(key.sliced(key.indexOf(u'/') + 1));
}

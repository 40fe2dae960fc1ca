#include "export/formats/ZLSessionMarkers.h"

#include <QByteArrayMatcher>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

bool isBlank(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

/// The character that an entity stands for, without its ampersand and semicolon; empty when there is none.
QString characterOf(QStringView entity)
{
    if (entity == u"amp")
        return u"&"_s;
    if (entity == u"lt")
        return u"<"_s;
    if (entity == u"gt")
        return u">"_s;
    if (entity == u"quot")
        return u"\""_s;
    if (entity == u"apos")
        return u"'"_s;
    if (!entity.startsWith(u'#'))
        return {};
    const bool isHexadecimal = entity.startsWith(u"#x");
    bool isNumber = false;
    const uint code = entity.sliced(isHexadecimal ? 2 : 1).toUInt(&isNumber, isHexadecimal ? 16 : 10);
    return isNumber && code > 0 && code <= QChar::LastValidCodePoint
        ? QString::fromUcs4(std::array { char32_t(code) }.data(), 1)
        : QString();
}

QString withoutEntities(const QString& text)
{
    constexpr qsizetype longestEntity = 10;
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const qsizetype end =
            text.at(at) == u'&' ? text.sliced(at, std::min(longestEntity, text.size() - at)).indexOf(u';') : -1;
        const QString character = end > 0 ? characterOf(QStringView(text).sliced(at + 1, end - 1)) : QString();
        result += character.isEmpty() ? QString(text.at(at)) : character;
        if (!character.isEmpty())
            at += end;
    }
    return result;
}

/// Reads the attributes of one element, one after the other.
class AttributeReader {
public:
    explicit AttributeReader(QByteArrayView text)
        : m_text(text)
    {
    }

    /// False at the end of the element, or where it is broken.
    bool readNext()
    {
        skipBlanks();
        const qsizetype nameBegin = m_at;
        while (m_at < m_text.size() && (std::isalnum(static_cast<unsigned char>(m_text[m_at])) || m_text[m_at] == '_'))
            ++m_at;
        m_name = m_text.sliced(nameBegin, m_at - nameBegin);
        if (m_name.isEmpty() || m_at + 1 >= m_text.size() || m_text[m_at] != '=')
            return false;
        const char quote = m_text[m_at + 1];
        if (quote != '"' && quote != '\'')
            return false;
        const qsizetype valueBegin = m_at + 2;
        m_at = endOfValue(valueBegin, quote);
        m_value = m_text.sliced(valueBegin, m_at - valueBegin);
        ++m_at;
        return m_at <= m_text.size();
    }

    [[nodiscard]] QByteArrayView name() const { return m_name; }
    [[nodiscard]] QString value() const { return withoutEntities(QString::fromUtf8(m_value)); }

private:
    void skipBlanks()
    {
        while (m_at < m_text.size() && isBlank(m_text[m_at]))
            ++m_at;
    }

    /// A quote within a value may stand there as it is; the one that ends it is followed by what ends a value.
    [[nodiscard]] qsizetype endOfValue(qsizetype from, char quote) const
    {
        for (qsizetype at = from; at < m_text.size(); ++at) {
            const char next = at + 1 < m_text.size() ? m_text[at + 1] : '>';
            if (m_text[at] == quote && (isBlank(next) || next == '/' || next == '>'))
                return at;
        }
        return m_text.size();
    }

    QByteArrayView m_text;
    qsizetype m_at = 0;
    QByteArrayView m_name;
    QByteArrayView m_value;
};

std::optional<ZLSessionMarker> markerFrom(QByteArrayView attributes)
{
    AttributeReader reader(attributes);
    std::optional<QString> name;
    std::optional<double> seconds;
    while (reader.readNext()) {
        if (reader.name() == "Name")
            name = reader.value();
        bool isNumber = false;
        const double number = reader.name() == "Time" ? reader.value().toDouble(&isNumber) : 0.0;
        if (isNumber && std::isfinite(number))
            seconds = number;
    }
    constexpr double longest = 1e12;
    if (!name || !seconds || std::fabs(*seconds) > longest)
        return std::nullopt;
    return ZLSessionMarker { std::llround(*seconds * 1000.0), *name };
}

}

size_t qHash(const ZLSessionMarker& marker, size_t seed)
{
    return qHashMulti(seed, marker.milliseconds, marker.name);
}

QSet<ZLSessionMarker> ZLSessionMarkers::in(QByteArrayView session)
{
    static const QByteArrayMatcher opening(QByteArrayLiteral("<Marker "));
    QSet<ZLSessionMarker> markers;
    qsizetype at = opening.indexIn(session);
    while (at >= 0) {
        const qsizetype begin = at + opening.pattern().size();
        at = opening.indexIn(session, begin);
        // An element ends before the next one begins, whatever is wrong with it.
        const qsizetype end = at < 0 ? session.size() : at;
        if (const auto marker = markerFrom(session.sliced(begin, end - begin)))
            markers.insert(*marker);
    }
    return markers;
}

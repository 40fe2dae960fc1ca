#include "lists/ZLListSource.h"

#include <QCoreApplication>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <utility>

namespace {

struct SourceTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLListSource)
};

struct DecodedText {
    QString text;
    bool isGuess = false;
};

/// A text in a Latin script has a zero in every second byte of its UTF-16 form.
std::optional<QStringConverter::Encoding> utf16WithoutMark(const QByteArray& bytes)
{
    constexpr qsizetype bytesLookedAt = 256;
    const QByteArray beginning = bytes.first(std::min(bytes.size(), bytesLookedAt));
    qsizetype zerosAtEven = 0;
    qsizetype zerosAtOdd = 0;
    for (qsizetype i = 0; i < beginning.size(); ++i) {
        if (beginning.at(i) == '\0')
            ++(i % 2 == 0 ? zerosAtEven : zerosAtOdd);
    }
    const qsizetype enough = beginning.size() / 4;
    if (zerosAtOdd > enough && zerosAtEven == 0)
        return QStringConverter::Utf16LE;
    if (zerosAtEven > enough && zerosAtOdd == 0)
        return QStringConverter::Utf16BE;
    return std::nullopt;
}

std::optional<QString> decoded(const QByteArray& bytes, QStringConverter::Encoding encoding)
{
    QStringDecoder decoder(encoding);
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

DecodedText decodedText(const QByteArray& bytes)
{
    auto encoding = QStringConverter::encodingForData(bytes);
    if (!encoding)
        encoding = utf16WithoutMark(bytes);
    if (const auto text = decoded(bytes, encoding.value_or(QStringConverter::Utf8)))
        return { *text };
    return { QString::fromLatin1(bytes), true };
}

ZLError tooLong()
{
    return { SourceTexts::tr("This is too large to be a list of chapters.") };
}

}

ZLResult<ZLListSource> ZLListSource::fromBytes(const QByteArray& bytes)
{
    if (bytes.size() > MostBytes)
        return tooLong();
    const DecodedText decoded = decodedText(bytes);
    if (decoded.text.contains(QChar::Null))
        return ZLError { SourceTexts::tr("This is not a text.") };
    auto source = fromText(decoded.text);
    if (!source)
        return source;
    ZLListSource read = std::move(source).value();
    read.m_isGuessedLatin1 = decoded.isGuess;
    return read;
}

ZLResult<ZLListSource> ZLListSource::fromText(const QString& text)
{
    if (text.size() > MostBytes || text.count(u'\n') + text.count(u'\r') > MostLines)
        return tooLong();
    return ZLListSource(text);
}

ZLListSource::ZLListSource(QString text)
    : m_text(std::move(text))
{
    if (m_text.startsWith(QChar::ByteOrderMark))
        m_text.remove(0, 1);
    splitLines();
    lookForJson();
    lookForXml();
}

QStringView ZLListSource::firstFullLine() const
{
    for (const QStringView line : m_lines) {
        if (!line.trimmed().isEmpty())
            return line;
    }
    return {};
}

void ZLListSource::splitLines()
{
    const QStringView text(m_text);
    qsizetype begin = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) != u'\n' && text.at(i) != u'\r')
            continue;
        m_lines.append(text.sliced(begin, i - begin));
        if (text.at(i) == u'\r' && i + 1 < text.size() && text.at(i + 1) == u'\n')
            ++i;
        begin = i + 1;
    }
    if (begin < text.size())
        m_lines.append(text.sliced(begin));
}

void ZLListSource::lookForJson()
{
    const QStringView text = QStringView(m_text).trimmed();
    if (!text.startsWith(u'{') && !text.startsWith(u'['))
        return;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &error);
    if (error.error == QJsonParseError::NoError)
        m_json = document;
    else
        m_jsonProblem =
            SourceTexts::tr("The JSON is broken after %1 bytes: %2").arg(error.offset).arg(error.errorString());
}

void ZLListSource::lookForXml()
{
    if (!QStringView(m_text).trimmed().startsWith(u'<'))
        return;
    QXmlStreamReader reader(m_text.trimmed());
    if (reader.readNextStartElement())
        m_xmlRootName = reader.name().toString();
}

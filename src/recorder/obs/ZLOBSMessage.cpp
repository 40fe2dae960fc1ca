#include "recorder/obs/ZLOBSMessage.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

/// Of the kinds of events, those about outputs.
constexpr int outputEvents = 1 << 6;

QString digest(const QString& text)
{
    const QByteArray hash = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toBase64());
}

}

std::optional<ZLOBSMessage> ZLOBSMessage::read(const QString& text)
{
    const QJsonObject message = QJsonDocument::fromJson(text.toUtf8()).object();
    const QJsonValue kind = message.value("op"_L1);
    const QJsonValue data = message.value("d"_L1);
    if (!kind.isDouble() || !data.isObject())
        return std::nullopt;
    return ZLOBSMessage { Kind(kind.toInt(-1)), data.toObject() };
}

QString ZLOBSMessage::text() const
{
    const QJsonObject message { { u"op"_s, int(kind) }, { u"d"_s, data } };
    return QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

ZLOBSMessage ZLOBSMessage::identify(const QJsonObject& hello, const QString& password)
{
    QJsonObject data { { u"rpcVersion"_s, ProcedureVersion }, { u"eventSubscriptions"_s, outputEvents } };
    const QJsonValue wanted = hello.value("authentication"_L1);
    if (wanted.isObject()) {
        const QString salt = wanted.toObject().value("salt"_L1).toString();
        const QString challenge = wanted.toObject().value("challenge"_L1).toString();
        data.insert(u"authentication"_s, authentication(password, salt, challenge));
    }
    return { Kind::Identify, data };
}

ZLOBSMessage ZLOBSMessage::request(const QString& type, const QString& identifier, const QJsonObject& data)
{
    return { Kind::Request,
        { { u"requestType"_s, type }, { u"requestId"_s, identifier }, { u"requestData"_s, data } } };
}

ZLOBSMessage ZLOBSMessage::batch(const QStringList& types, const QString& identifier)
{
    QJsonArray requests;
    for (const QString& type : types)
        requests.append(QJsonObject { { u"requestType"_s, type } });
    return { Kind::RequestBatch, { { u"requestId"_s, identifier }, { u"requests"_s, requests } } };
}

QString ZLOBSMessage::authentication(const QString& password, const QString& salt, const QString& challenge)
{
    return digest(digest(password + salt) + challenge);
}

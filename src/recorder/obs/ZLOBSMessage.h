#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

/// The messages of obs-websocket's protocol 5: JSON objects with a number that says what kind they are, and their data.
struct ZLOBSMessage {
    enum class Kind {
        Hello = 0,
        Identify = 1,
        Identified = 2,
        Event = 5,
        Request = 6,
        Response = 7,
        RequestBatch = 8,
        BatchResponse = 9
    };

    Kind kind = Kind::Hello;
    QJsonObject data;

    /// nullopt for what is no message of the protocol.
    [[nodiscard]] static std::optional<ZLOBSMessage> read(const QString& text);
    [[nodiscard]] QString text() const;

    /// The one version of the procedures that this program speaks.
    static constexpr int ProcedureVersion = 1;
    /// `hello` is the data of the server's greeting, which has a challenge where it wants a password. Only events about
    /// recording are asked for.
    [[nodiscard]] static ZLOBSMessage identify(const QJsonObject& hello, const QString& password);
    [[nodiscard]] static ZLOBSMessage request(
        const QString& type, const QString& identifier, const QJsonObject& data = {});
    /// Several requests without data, carried out one right after the other.
    [[nodiscard]] static ZLOBSMessage batch(const QStringList& types, const QString& identifier);

    /// The answer to the challenge: the password does not go over the network.
    [[nodiscard]] static QString authentication(const QString& password, const QString& salt, const QString& challenge);
};

#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A PulseAudio server of the test's own, with two outputs that are not heard: "left_card", the default one, known as
/// "Left Card", and "right_card", known as "Right Card". While it lives, this process's sound goes to it.
class ZLPrivateSoundServer {
public:
    ZLPrivateSoundServer();
    ~ZLPrivateSoundServer();

    /// Empty when the server runs.
    [[nodiscard]] QString error() const { return m_error; }

    /// Adds an output and returns the number under which it can be removed; empty when that failed.
    [[nodiscard]] QString addOutput(const QString& identifier, const QString& name);
    [[nodiscard]] bool removeOutput(const QString& number);
    /// Adds a device that only records; false when that failed.
    [[nodiscard]] bool addMicrophone(const QString& identifier);
    /// The numbers of the two outputs.
    [[nodiscard]] QString leftOutput() const { return m_leftOutput; }
    [[nodiscard]] QString rightOutput() const { return m_rightOutput; }

    /// As when the server crashes.
    void kill();
    /// Starts it again, in the same place.
    void start();

private:
    [[nodiscard]] QString socket() const { return m_folder.filePath(QStringLiteral("native")); }
    [[nodiscard]] QString control(const QStringList& arguments, int* exitCode = nullptr) const;

    QTemporaryDir m_folder;
    QByteArray m_earlierAddress;
    QProcess m_server;
    QString m_error;
    QString m_leftOutput;
    QString m_rightOutput;
};

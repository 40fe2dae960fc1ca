#include "platform/sound/ZLPrivateSoundServer.h"

#include <QFile>
#include <QProcessEnvironment>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int soundServerDeadlineMilliseconds = 20000;

}

ZLPrivateSoundServer::ZLPrivateSoundServer()
    : m_earlierAddress(qgetenv("PULSE_SERVER"))
{
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(socket()));
    start();
}

ZLPrivateSoundServer::~ZLPrivateSoundServer()
{
    kill();
    if (m_earlierAddress.isEmpty())
        qunsetenv("PULSE_SERVER");
    else
        qputenv("PULSE_SERVER", m_earlierAddress);
}

void ZLPrivateSoundServer::start()
{
    QFile script(m_folder.filePath(u"pulse.pa"_s));
    if (!script.open(QIODevice::WriteOnly)) {
        m_error = script.errorString();
        return;
    }
    script.write(
        "load-module module-native-protocol-unix auth-anonymous=1 socket=" + QFile::encodeName(socket()) + "\n");
    script.close();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& place : { u"HOME"_s, u"XDG_RUNTIME_DIR"_s, u"XDG_CONFIG_HOME"_s })
        environment.insert(place, m_folder.path());
    m_server.setProcessEnvironment(environment);
    m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // A test that crashes takes the server along.
    m_server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_server.start(u"pulseaudio"_s,
        { u"-n"_s, u"-F"_s, script.fileName(), u"--daemonize=no"_s, u"--exit-idle-time=-1"_s, u"--disable-shm=yes"_s,
            u"--use-pid-file=no"_s, u"--realtime=no"_s, u"--high-priority=no"_s, u"--log-target=stderr"_s,
            u"--log-level=error"_s });
    const auto answers = [this] {
        int exitCode = 1;
        (void)control({ u"info"_s }, &exitCode);
        return exitCode == 0;
    };
    if (!m_server.waitForStarted() || !QTest::qWaitFor(answers, soundServerDeadlineMilliseconds)) {
        m_error = u"pulseaudio: "_s + m_server.errorString();
        return;
    }
    m_leftOutput = addOutput(u"left_card"_s, u"Left Card"_s);
    m_rightOutput = addOutput(u"right_card"_s, u"Right Card"_s);
    if (m_leftOutput.isEmpty() || m_rightOutput.isEmpty())
        m_error = u"pulseaudio: the outputs could not be made"_s;
    (void)control({ u"set-default-sink"_s, u"left_card"_s });
}

QString ZLPrivateSoundServer::addOutput(const QString& identifier, const QString& name)
{
    // Without rewinding such an output plays in time, as a real one does; else it takes two seconds at once.
    return control({ u"load-module"_s, u"module-null-sink"_s, u"sink_name="_s + identifier, u"rate=48000"_s,
        u"channels=2"_s, u"norewinds=1"_s, u"sink_properties=\"device.description='%1'\""_s.arg(name) });
}

bool ZLPrivateSoundServer::removeOutput(const QString& number)
{
    int exitCode = 1;
    (void)control({ u"unload-module"_s, number }, &exitCode);
    return exitCode == 0;
}

bool ZLPrivateSoundServer::addMicrophone(const QString& identifier)
{
    return !control({ u"load-module"_s, u"module-null-source"_s, u"source_name="_s + identifier }).isEmpty();
}

void ZLPrivateSoundServer::kill()
{
    m_server.kill();
    m_server.waitForFinished(soundServerDeadlineMilliseconds);
}

QString ZLPrivateSoundServer::control(const QStringList& arguments, int* exitCode) const
{
    QProcess pactl;
    pactl.setStandardErrorFile(QProcess::nullDevice());
    pactl.start(u"pactl"_s, arguments);
    const bool isDone = pactl.waitForFinished(soundServerDeadlineMilliseconds);
    if (exitCode)
        *exitCode = isDone ? pactl.exitCode() : 1;
    return isDone && pactl.exitCode() == 0 ? QString::fromUtf8(pactl.readAllStandardOutput()).trimmed() : QString();
}

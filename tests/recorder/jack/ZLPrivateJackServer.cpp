#include "recorder/jack/ZLPrivateJackServer.h"

#include <QCoreApplication>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int jackDeadlineMilliseconds = 20000;
constexpr auto serverNameVariable = "JACK_DEFAULT_SERVER";

}

ZLPrivateJackServer::ZLPrivateJackServer()
    : m_earlierName(qgetenv(serverNameVariable))
    , m_name(u"zelta-test-%1"_s.arg(QCoreApplication::applicationPid()))
{
    qputenv(serverNameVariable, m_name.toLatin1());
    // A test that crashes takes the server along.
    m_server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_server.setProcessChannelMode(QProcess::MergedChannels);
}

ZLPrivateJackServer::~ZLPrivateJackServer()
{
    // What a server leaves in shared memory when it is killed, it takes away when it is told to end.
    m_server.terminate();
    if (!m_server.waitForFinished(jackDeadlineMilliseconds))
        kill();
    if (m_earlierName.isEmpty())
        qunsetenv(serverNameVariable);
    else
        qputenv(serverNameVariable, m_earlierName);
}

bool ZLPrivateJackServer::start()
{
    m_server.start(
        u"jackd"_s, { u"-r"_s, u"-n"_s, m_name, u"-d"_s, u"dummy"_s, u"-r"_s, u"48000"_s, u"-p"_s, u"1024"_s });
    return m_server.waitForStarted(jackDeadlineMilliseconds);
}

void ZLPrivateJackServer::kill()
{
    m_server.kill();
    m_server.waitForFinished(jackDeadlineMilliseconds);
}

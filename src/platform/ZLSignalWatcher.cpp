#include "platform/ZLSignalWatcher.h"

#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

/// Where the handler writes; -1 while there is no watcher.
std::atomic<int> signalPipeWriteEnd { -1 };
static_assert(std::atomic<int>::is_always_lock_free, "the signal handler reads it");

/// Runs at any point of the program, so it may only do what POSIX calls async-signal-safe.
void writeSignalToPipe(int signalNumber)
{
    const int savedError = errno;
    const auto byte = static_cast<unsigned char>(signalNumber);
    // A full pipe means that signals enough are waiting to be read.
    [[maybe_unused]] const ssize_t written = write(signalPipeWriteEnd.load(), &byte, 1);
    errno = savedError;
}

}

struct ZLSignalWatcher::FormerActions {
    std::vector<std::pair<int, struct sigaction>> actions;
};

ZLSignalWatcher::ZLSignalWatcher(const QList<int>& signalNumbers, QObject* parent)
    : QObject(parent)
    , m_formerActions(std::make_unique<FormerActions>())
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        qCritical("no pipe to watch signals with: %s", qPrintable(qt_error_string(errno)));
        return;
    }
    m_readEnd = ends[0];
    m_writeEnd = ends[1];
    m_notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &ZLSignalWatcher::readSignals);
    signalPipeWriteEnd = m_writeEnd;
    for (const int signalNumber : signalNumbers)
        watch(signalNumber);
}

ZLSignalWatcher::~ZLSignalWatcher()
{
    for (const auto& [signalNumber, action] : m_formerActions->actions)
        sigaction(signalNumber, &action, nullptr);
    signalPipeWriteEnd = -1;
    delete m_notifier;
    if (m_readEnd >= 0) {
        close(m_readEnd);
        close(m_writeEnd);
    }
}

void ZLSignalWatcher::watch(int signalNumber)
{
    struct sigaction former {};
    if (sigaction(signalNumber, nullptr, &former) != 0 || former.sa_handler == SIG_IGN)
        return;
    struct sigaction action {};
    action.sa_handler = writeSignalToPipe;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    if (sigaction(signalNumber, &action, nullptr) == 0)
        m_formerActions->actions.emplace_back(signalNumber, former);
}

void ZLSignalWatcher::readSignals()
{
    unsigned char byte = 0;
    while (read(m_readEnd, &byte, 1) == 1)
        Q_EMIT didReceiveSignal(byte);
}

// How long a press on a control surface takes to come back as a status message, in microseconds, one a line. A bare UDP
// socket, the same for the recorder and for its peer: it prints its port, reads the port to press from standard input,
// presses, and waits each time until the other side has gone quiet.
#include <arpa/inet.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::string_view press { "/zl/newChapter\0\0,f\0\0\x3f\x80\0\0", 24 };
constexpr std::string_view answerAddress { "/zl/isRecording\0", 16 };
constexpr int patienceMilliseconds = 5000;
constexpr int quietMilliseconds = 3;
constexpr int pressesBeforeCounting = 20;

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "osc round trip: %s\n", what);
    std::exit(1);
}

sockaddr_in loopback(int port)
{
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int openSocket()
{
    const int descriptor = socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    if (bind(descriptor, reinterpret_cast<sockaddr*>(&address), size) != 0
        || getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        fail("no port to listen on");
    std::printf("%d\n", ntohs(address.sin_port));
    std::fflush(stdout);
    return descriptor;
}

/// Empty when nothing came in time.
std::string_view receive(int descriptor, int milliseconds)
{
    static char buffer[2048];
    pollfd waiting { .fd = descriptor, .events = POLLIN, .revents = 0 };
    if (poll(&waiting, 1, milliseconds) <= 0)
        return {};
    const ssize_t size = recv(descriptor, buffer, sizeof buffer, 0);
    return { buffer, size > 0 ? static_cast<size_t>(size) : 0 };
}

void waitUntilQuiet(int descriptor)
{
    while (!receive(descriptor, quietMilliseconds).empty()) { }
}

double pressOnce(int descriptor, const sockaddr_in& recorder)
{
    const auto start = Clock::now();
    sendto(descriptor, press.data(), press.size(), 0, reinterpret_cast<const sockaddr*>(&recorder), sizeof recorder);
    for (;;) {
        const std::string_view answer = receive(descriptor, patienceMilliseconds);
        if (answer.empty())
            fail("no answer");
        // The clock is sent every second as well; it is not what is waited for.
        if (answer.starts_with(answerAddress))
            return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
    }
}

}

int main(int argc, char** argv)
{
    const int count = argc > 1 ? std::atoi(argv[1]) : 0;
    if (count <= 0)
        fail("how many presses?");
    const int descriptor = openSocket();
    int port = 0;
    if (std::scanf("%d", &port) != 1)
        fail("which port?");
    const sockaddr_in recorder = loopback(port);
    std::vector<double> figures;
    for (int i = 0; i < pressesBeforeCounting + count; ++i) {
        waitUntilQuiet(descriptor);
        const double figure = pressOnce(descriptor, recorder);
        if (i >= pressesBeforeCounting)
            figures.push_back(figure);
    }
    for (const double figure : figures)
        std::printf("%.1f\n", figure);
    close(descriptor);
}

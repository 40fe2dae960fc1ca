// The least that a program with liblo does: it answers every message with one status message. It prints its port.
#include <lo/lo.h>

#include <cstdio>
#include <cstdlib>

namespace {

int answer(const char*, const char*, lo_arg**, int, lo_message received, void* server)
{
    lo_message message = lo_message_new();
    lo_message_add_true(message);
    lo_send_message_from(lo_message_get_source(received), server, "/zl/isRecording", message);
    lo_message_free(message);
    return 0;
}

}

int main()
{
    lo_server server = lo_server_new(nullptr, nullptr);
    if (!server)
        return EXIT_FAILURE;
    lo_server_add_method(server, nullptr, nullptr, answer, server);
    std::printf("%d\n", lo_server_get_port(server));
    std::fflush(stdout);
    for (;;)
        lo_server_recv(server);
}

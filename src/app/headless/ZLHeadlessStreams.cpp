#include "app/headless/ZLHeadlessStreams.h"

#include "platform/ZLShownText.h"

#include <cstdio>
#include <unistd.h>

namespace {

void writeLineTo(std::FILE* stream, const QString& line)
{
    // A reader that has gone away is no reason to stop.
    std::fprintf(stream, "%s\n", qUtf8Printable(ZLShownText::asOneLine(line)));
    std::fflush(stream);
}

}

ZLHeadlessStreams ZLHeadlessStreams::standard()
{
    return {
        .inputDescriptor = STDIN_FILENO,
        .print = [](const QString& line) { writeLineTo(stdout, line); },
        .complain = [](const QString& line) { writeLineTo(stderr, line); },
    };
}

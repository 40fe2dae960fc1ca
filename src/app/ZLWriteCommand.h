#pragma once

#include "app/ZLCommandLine.h"
#include "model/ZLChapter.h"

#include <functional>

/// "zelta write": puts the chapters of a document into audio files, one after the other.
class ZLWriteCommand {
public:
    /// Each takes one line: what was done, and what to know or what went wrong.
    ZLWriteCommand(std::function<int(const QString&)> print, std::function<void(const QString&)> warn);

    /// A ZLExitStatus. A failure does not stop the files behind.
    [[nodiscard]] int run(const ZLChapterSequence& chapters, const ZLCommandLine& commandLine);

private:
    [[nodiscard]] int write(const ZLChapterSequence& chapters, const QString& audio, const ZLCommandLine& commandLine);

    std::function<int(const QString&)> m_print;
    std::function<void(const QString&)> m_warn;
};

#pragma once

#include "app/ZLCommandLine.h"
#include "document/ZLDocumentFile.h"
#include "import/ZLImportSource.h"

#include <functional>

/// "zelta import": makes a document of the chapters in any file, or adds them to one. Each function returns a
/// ZLExitStatus.
class ZLImportCommand {
public:
    /// Each takes one line: what was done, and what to know or what went wrong.
    ZLImportCommand(std::function<int(const QString&)> print, std::function<void(const QString&)> warn);

    [[nodiscard]] int run(const ZLCommandLine& commandLine);

    /// The chosen show of `source` as a document, and what is to be known of it as warnings. The error says that there
    /// is no such show, or which there are where none was chosen.
    [[nodiscard]] ZLResult<ZLDocumentContents> contents(
        const ZLImportSource& source, const ZLCommandLine& commandLine) const;

private:
    [[nodiscard]] static ZLResult<ZLDocumentContents> contentsBefore(const ZLCommandLine& commandLine);
    [[nodiscard]] ZLResult<QString> write(const ZLCommandLine& commandLine) const;

    std::function<int(const QString&)> m_print;
    std::function<void(const QString&)> m_warn;
};

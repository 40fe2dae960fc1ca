#pragma once

#include "app/ZLCommandLine.h"
#include "delivery/fit/ZLFit.h"
#include "document/ZLDocumentFile.h"
#include "listening/ZLListeningData.h"
#include "platform/ZLWorkProgress.h"

#include <functional>

/// "zelta fit": finds the chapters of a document in a finished file, by what was heard along or by the raw recording of
/// the show.
class ZLFitCommand {
public:
    /// `print` writes to the standard output and returns a ZLExitStatus, `warn` tells a reason.
    ZLFitCommand(std::function<int(const QString&)> print, std::function<void(const QString&)> warn);

    [[nodiscard]] int run(const ZLDocumentContents& contents, const ZLCommandLine& commandLine);

private:
    [[nodiscard]] ZLResult<ZLFit> fit(const ZLDocumentContents& contents, const ZLCommandLine& commandLine) const;
    [[nodiscard]] static ZLResult<ZLHeardShow> heardShow(
        const ZLDocumentContents& contents, const ZLCommandLine& commandLine, ZLWorkProgress& progress);
    [[nodiscard]] static ZLStatus checkOutput(const QString& path);
    [[nodiscard]] static ZLStatus write(
        const ZLFit& fit, const ZLDocumentContents& contents, const ZLCommandLine& commandLine);

    std::function<int(const QString&)> m_print;
    std::function<void(const QString&)> m_warn;
};

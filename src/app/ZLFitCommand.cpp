#include "app/ZLFitCommand.h"

#include "delivery/fit/ZLFitApplication.h"
#include "delivery/fit/ZLFitReport.h"
#include "delivery/fit/ZLHeardSound.h"
#include "document/saving/ZLWriteProtection.h"
#include "model/ZLChapterManager.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLFileError.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

struct FitTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLFitCommand)
};

}

ZLFitCommand::ZLFitCommand(std::function<int(const QString&)> print, std::function<void(const QString&)> warn)
    : m_print(std::move(print))
    , m_warn(std::move(warn))
{
}

int ZLFitCommand::run(const ZLDocumentContents& contents, const ZLCommandLine& commandLine)
{
    const auto fitted = fit(contents, commandLine);
    if (!fitted) {
        m_warn(fitted.error().message);
        return ZLExitStatus::Failed;
    }
    if (const ZLStatus written = write(fitted.value(), contents, commandLine); !written) {
        m_warn(written.error().message);
        return ZLExitStatus::Failed;
    }
    return m_print(commandLine.showForm == ZLShowForm::Json ? QString::fromUtf8(ZLFitReport::json(fitted.value()))
                                                            : ZLFitReport::table(fitted.value()));
}

ZLResult<ZLFit> ZLFitCommand::fit(const ZLDocumentContents& contents, const ZLCommandLine& commandLine) const
{
    // Told before minutes of work.
    if (const ZLStatus free = checkOutput(commandLine.outputPath); !free)
        return free.error();
    ZLWorkProgress progress;
    const auto show = heardShow(contents, commandLine, progress);
    if (!show)
        return show.error();
    const auto file = ZLHeardSound::fingerprintOf(commandLine.finishedPath, progress);
    if (!file)
        return file.error();
    const ZLFit fit = ZLFit::of(ZLFitNotes::marksOf(ZLChapterManager(contents.chapters).allChapters(), contents.extras),
        ZLSoundAlignment::of(show.value().fingerprint, file.value(), progress), show.value().zero);
    if (fit.isTheShow())
        return fit;
    return ZLError { FitTexts::tr("%1 is not the show: too little of %2 is in it.")
            .arg(commandLine.finishedPath,
                commandLine.heardPath.isEmpty() ? FitTexts::tr("what is known of the show") : commandLine.heardPath) };
}

ZLResult<ZLHeardShow> ZLFitCommand::heardShow(
    const ZLDocumentContents& contents, const ZLCommandLine& commandLine, ZLWorkProgress& progress)
{
    if (!commandLine.heardPath.isEmpty()) {
        auto fingerprint = ZLHeardSound::fingerprintOf(commandLine.heardPath, progress);
        return fingerprint ? ZLResult(ZLHeardShow { std::move(fingerprint).value(), commandLine.zero })
                           : ZLResult<ZLHeardShow>(fingerprint.error());
    }
    auto show = ZLHeardSound::heardAlong(contents.extras.value(ZLListeningData::Key));
    if (show)
        return show;
    const auto recorded = ZLRecorderFiles::in(contents.extras.value(ZLRecorderFiles::Key));
    if (!recorded.isEmpty())
        return ZLHeardSound::recorded(recorded, progress);
    return ZLError { ZLFileError::because(commandLine.files.constFirst(), show.error().message).message + u' '
        + FitTexts::tr("Name the raw recording of the show with --heard.") };
}

ZLStatus ZLFitCommand::checkOutput(const QString& path)
{
    if (path.isEmpty())
        return ZLDone {};
    const QFileInfo file(path);
    if (file.exists() || file.isSymLink())
        return ZLError { FitTexts::tr("%1 is there already.").arg(path) };
    return ZLWriteProtection::check(path);
}

ZLStatus ZLFitCommand::write(const ZLFit& fit, const ZLDocumentContents& contents, const ZLCommandLine& commandLine)
{
    if (commandLine.outputPath.isEmpty())
        return ZLDone {};
    ZLDocumentContents fitted = ZLFitApplication::contentsOf(fit);
    fitted.templates = contents.templates;
    return ZLAtomicFile::write(commandLine.outputPath, ZLDocumentFile::encode(fitted));
}

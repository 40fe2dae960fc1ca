#include "app/ZLWriteCommand.h"

#include "delivery/ZLDelivery.h"

using namespace Qt::StringLiterals;

ZLWriteCommand::ZLWriteCommand(std::function<int(const QString&)> print, std::function<void(const QString&)> warn)
    : m_print(std::move(print))
    , m_warn(std::move(warn))
{
}

int ZLWriteCommand::run(const ZLChapterSequence& chapters, const ZLCommandLine& commandLine)
{
    int status = ZLExitStatus::Done;
    for (const QString& audio : commandLine.files.sliced(1)) {
        if (const int one = write(chapters, audio, commandLine); one != ZLExitStatus::Done)
            status = one;
    }
    return status;
}

int ZLWriteCommand::write(const ZLChapterSequence& chapters, const QString& audio, const ZLCommandLine& commandLine)
{
    const auto plan = ZLDeliveryPlan::make(chapters, audio, commandLine.shift);
    if (!plan) {
        m_warn(plan.error().message);
        return ZLExitStatus::Failed;
    }
    for (const QString& finding : plan.value().findings)
        m_warn(u"%1: %2"_s.arg(audio, finding));
    ZLWorkProgress progress;
    const QString output = commandLine.outputPath.isEmpty() ? audio : commandLine.outputPath;
    const auto outcome = ZLDelivery::write(plan.value(), output, progress);
    if (outcome)
        return m_print(outcome.value() + u'\n');
    m_warn(outcome.error().message);
    return ZLExitStatus::Failed;
}

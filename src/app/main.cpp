#include "app/ZLApplication.h"
#include "app/ZLApplicationListening.h"
#include "app/ZLApplicationSounds.h"
#include "app/ZLCommandLine.h"
#include "app/ZLErrorLines.h"
#include "app/ZLFileCommands.h"
#include "app/ZLFileWords.h"
#include "app/ZLSendCommand.h"
#include "app/headless/ZLHeadlessListening.h"
#include "app/headless/ZLHeadlessRecorder.h"
#include "app/ui/ZLDesktop.h"
#include "app/ui/ZLDesktopApplication.h"
#include "export/formats/ZLRegisterExporters.h"
#include "export/lists/ZLListExporter.h"
#include "platform/ZLAbandonedWork.h"
#include "platform/ZLDescriptors.h"
#include "platform/activity/ZLBootClock.h"
#include "platform/dnssd/ZLAvahiServicePublisher.h"
#include "resources/translations/ZLTranslation.h"

#include <QFileInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Where the toolkit would find no display it ends the process, so it has to be asked before.
bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

/// What is wrong with the arguments, if anything.
ZLResult<ZLCommandLine> readCommandLine(const QStringList& arguments)
{
    auto commandLine = ZLCommandLine::parse(arguments);
    if (!commandLine || commandLine.value().isFileCommand())
        return commandLine;
    if (const ZLStatus words = ZLFileWords::check(commandLine.value()); !words)
        return words.error();
    if (commandLine.value().command == ZLCommand::OpenWindows && commandLine.value().files.size() > 1 && !hasDisplay())
        return ZLError { QCoreApplication::translate(
            "main", "No X or Wayland display was found, and without a window Zelta records one file at most.") };
    return commandLine;
}

int runFileCommand(int& argc, char** argv, const QStringList& arguments)
{
    const QCoreApplication events(argc, argv);
    const ZLTranslation translation;
    ZLRegisterExporters();
    QTextStream out(stdout);
    QTextStream err(stderr);
    ZLFileCommands commands(ZLExporter::allExporters() + ZLListExporter::allForms(), out, err);
    // Read once more: what is wrong with it is told in the user's language.
    const ZLResult<ZLCommandLine> commandLine = readCommandLine(arguments);
    return commandLine ? commands.run(commandLine.value()) : commands.refuseUsage(commandLine.error());
}

int runSendCommand(int& argc, char** argv, const ZLCommandLine& commandLine)
{
    const QCoreApplication events(argc, argv);
    const ZLTranslation translation;
    QTextStream out(stdout);
    QTextStream err(stderr);
    return ZLSendCommand(out, err).run(commandLine);
}

int runHeadless(int& argc, char** argv, const ZLCommandLine& commandLine)
{
    const QCoreApplication events(argc, argv);
    const ZLTranslation translation;
    if (commandLine.command != ZLCommand::RecordHeadless)
        QTextStream(stderr) << QCoreApplication::translate(
            "main", "zelta: No X or Wayland display was found. Recording without a window.\n");
    ZLApplicationSounds sounds;
    // No notifications: its user reads and types at its streams, and an answer to a button needs a window.
    ZLApplication application(
        { .environment = { .bootClock = std::make_shared<ZLBootClock>(), .soundNamed = sounds.soundNamed() } },
        ZLApplication::StandardFontSize,
        { .oscPort = commandLine.oscPort,
            .oscOutputs = commandLine.oscOutputs,
            .oscPublisher = std::make_unique<ZLAvahiServicePublisher>(),
            .activity = ZLProcessActivity::create() });
    sounds.prepareForRecording();
    ZLApplicationListening listening(application.documentController());
    ZLHeadlessListening listeningLines(listening.shows(), ZLHeadlessStreams::standard());
    if (commandLine.listeningSource)
        listeningLines.begin(*commandLine.listeningSource);
    ZLHeadlessRecorder recorder(application.documentController(), ZLHeadlessStreams::standard());
    recorder.showRemoteControl(application.oscController());
    if (!commandLine.follow.isEmpty())
        recorder.follow(application.following(), commandLine.follow);
    QObject::connect(&recorder, &ZLHeadlessRecorder::didFinish, &events, &QCoreApplication::exit, Qt::QueuedConnection);
    QObject::connect(&events, &QCoreApplication::aboutToQuit, &ZLAbandonedWork::endProcessSoon);
    const auto file = commandLine.files.isEmpty() ? std::nullopt : std::optional(commandLine.files.first());
    if (const ZLStatus started = recorder.start(file, commandLine.headlessStart, ZLFileWords::missingFile(commandLine));
        !started) {
        ZLErrorLines::print({ started.error().message });
        return ZLExitStatus::Failed;
    }
    return QCoreApplication::exec();
}

ZLLaunchRequest launchRequest(const ZLCommandLine& commandLine)
{
    ZLLaunchRequest request { .wantsNewDocument = commandLine.wantsNewDocument };
    for (const QString& file : commandLine.files)
        request.files.append(QFileInfo(file).absoluteFilePath());
    return request;
}

/// Speaks to the process that has the windows before this one makes an application of its own.
ZLResult<ZLHandover> handOverToRunningInstance(int& argc, char** argv, const ZLLaunchRequest& request)
{
    const QCoreApplication events(argc, argv);
    const ZLTranslation translation;
    return ZLRunningInstance::handOver(request);
}

int runWithWindows(int& argc, char** argv, const ZLCommandLine& commandLine)
{
    const ZLLaunchRequest request = launchRequest(commandLine);
    const ZLResult<ZLHandover> handover = handOverToRunningInstance(argc, argv, request);
    if (!handover || handover.value().isTaken) {
        const QStringList problems = handover ? handover.value().problems : QStringList { handover.error().message };
        ZLErrorLines::print(problems);
        return problems.isEmpty() ? ZLExitStatus::Done : ZLExitStatus::Failed;
    }
    ZLDesktopApplication events(argc, argv);
    const ZLTranslation translation;
    QObject::connect(&events, &QCoreApplication::aboutToQuit, &ZLAbandonedWork::endProcessSoon);
    ZLDesktop desktop(events, commandLine);
    return desktop.run(request);
}

}

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(u"zelta"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(ZELTA_VERSION));
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    const ZLResult<ZLCommandLine> commandLine = readCommandLine(arguments);
    if (!commandLine || commandLine.value().isFileCommand())
        return runFileCommand(argc, argv, arguments);
    if (commandLine.value().command == ZLCommand::SendAction)
        return runSendCommand(argc, argv, commandLine.value());
    ZLDescriptors::raiseBound();
    const bool hasWindows = commandLine.value().command != ZLCommand::RecordHeadless && hasDisplay();
    return ZLAbandonedWork::exitStatus(
        hasWindows ? runWithWindows(argc, argv, commandLine.value()) : runHeadless(argc, argv, commandLine.value()));
}

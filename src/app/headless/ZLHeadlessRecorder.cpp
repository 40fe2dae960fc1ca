#include "app/headless/ZLHeadlessRecorder.h"

#include "app/headless/ZLHeadlessCommands.h"
#include "app/headless/ZLHeadlessFollowing.h"
#include "app/headless/ZLHeadlessReport.h"
#include "commands/ZLRemoteActions.h"
#include "platform/ZLLineReader.h"
#include "platform/ZLShownText.h"
#include "platform/ZLSignalWatcher.h"

#include <QFileInfo>

#include <csignal>
#include <utility>

ZLHeadlessRecorder::ZLHeadlessRecorder(ZLDocumentController& controller, ZLHeadlessStreams streams, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
    , m_streams(std::move(streams))
    , m_concerns(controller, m_streams.complain)
{
}

void ZLHeadlessRecorder::follow(ZLFollowing& following, const QString& word)
{
    m_following = new ZLHeadlessFollowing(following, word, m_streams, this);
}

ZLStatus ZLHeadlessRecorder::start(
    const std::optional<QString>& file, ZLHeadlessStart headlessStart, ZLMissingFile missingFile)
{
    watchSignals();
    const auto opened = openDocument(file, missingFile);
    if (!opened)
        return opened.error();
    ZLChapterDocument& document = *opened.value();
    equip(document);
    m_report->printStatus();
    m_report->print(tr("Commands come from standard input, one a line; \"help\" lists them."));
    m_concerns.begin(document);
    // The order to record means the show that goes on meanwhile, also after a crash.
    if (headlessStart == ZLHeadlessStart::Recording && document.interruptedRecording())
        m_commands->performChoice(ZLConcernChoices::of(ZLConcernAction::ContinueRecording));
    else if (headlessStart == ZLHeadlessStart::Recording)
        m_commands->performAction(*ZLRemoteActions::withIdentifier(ZLControllerToggleRecordingAction));
    const ZLStatus followed = m_following ? m_following->begin(document) : ZLStatus(ZLDone {});
    openInput();
    return followed;
}

void ZLHeadlessRecorder::watchSignals()
{
    // A reader of our output that goes away must not take the recording with it.
    std::signal(SIGPIPE, SIG_IGN);
    const auto* signals = new ZLSignalWatcher({ SIGINT, SIGTERM, SIGHUP }, this);
    connect(signals, &ZLSignalWatcher::didReceiveSignal, this, &ZLHeadlessRecorder::terminate);
}

ZLResult<ZLChapterDocument*> ZLHeadlessRecorder::openDocument(
    const std::optional<QString>& file, ZLMissingFile missingFile)
{
    if (!file)
        return restoreSession();
    const bool wasThere = QFileInfo::exists(*file);
    auto opened = m_controller.openDocument(*file, missingFile);
    if (!opened)
        return opened;
    const ZLDocumentSaver* saver = m_controller.saverOf(opened.value());
    // What a journal brings back of a missing file is not new.
    if (!wasThere && !saver->hasContent())
        m_streams.print(tr("new document: %1").arg(saver->path()));
    return opened;
}

ZLChapterDocument* ZLHeadlessRecorder::restoreSession()
{
    QStringList failures = m_controller.restoreSession();
    // All documents that found no room have one sentence.
    failures.removeDuplicates();
    for (const QString& failure : std::as_const(failures))
        m_streams.complain(failure);
    return m_controller.currentOrLastDocument();
}

void ZLHeadlessRecorder::equip(ZLChapterDocument& document)
{
    m_report = new ZLHeadlessReport(m_controller, document, m_streams, this);
    if (m_oscController)
        m_report->showRemoteControl(*m_oscController);
    m_commands = new ZLHeadlessCommands(document, *m_report, m_concerns, this);
    connect(m_commands, &ZLHeadlessCommands::quitRequested, this, &ZLHeadlessRecorder::quit);
}

void ZLHeadlessRecorder::handleLine(const QString& line)
{
    const QString text = line.trimmed();
    if (!text.isEmpty() && !m_commands->perform(text))
        m_streams.complain(tr("Unknown command \"%1\"; \"help\" lists the commands.")
                .arg(ZLShownText::asOneLine(text.section(u' ', 0, 0))));
}

void ZLHeadlessRecorder::terminate()
{
    const QStringList failures = m_controller.saveAllNow();
    for (const QString& failure : failures)
        m_streams.complain(tr("Cannot save: %1").arg(failure));
    Q_EMIT didFinish(failures.isEmpty() ? ZLExitStatus::Done : ZLExitStatus::Failed);
}

void ZLHeadlessRecorder::quit()
{
    if (m_controller.canTerminate())
        terminate();
    else
        m_streams.complain(tr("The clock is running: toggleRecording first, then quit."));
}

void ZLHeadlessRecorder::openInput()
{
    if (m_streams.inputDescriptor < 0)
        return;
    const auto* input = new ZLLineReader(m_streams.inputDescriptor, this);
    connect(input, &ZLLineReader::didReadLine, this, &ZLHeadlessRecorder::handleLine);
}

#include "app/ZLHeadlessRecorder.h"

#include "app/ZLActionRouting.h"
#include "platform/ZLLineReader.h"
#include "platform/ZLSignalWatcher.h"
#include "remote/ZLOSCController.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

void writeLineTo(std::FILE* stream, const QString& line)
{
    // What nobody can read any more is no reason to stop.
    std::fprintf(stream, "%s\n", qUtf8Printable(line));
    std::fflush(stream);
}

/// A title as it fits into one line.
QString titleForLine(QString title)
{
    for (QChar& character : title) {
        if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    return title;
}

/// `chapter 3 at 00:01:05.300 "News"`
QString describeChapter(qsizetype index, const ZLChapter& chapter)
{
    return u"chapter %1 at %2 \"%3\""_s.arg(
        QString::number(index + 1), chapter.timeString(), titleForLine(chapter.title()));
}

QString describeSaving(const ZLDocumentSaver& saver)
{
    switch (saver.state()) {
    case ZLSavingState::Saved:
        return u"saved"_s;
    case ZLSavingState::Waiting:
    case ZLSavingState::Saving:
        return u"being saved"_s;
    case ZLSavingState::Failed:
    case ZLSavingState::Conflict:
        break;
    }
    return u"not saved: "_s + saver.failureText();
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

ZLHeadlessRecorder::ZLHeadlessRecorder(ZLDocumentController& controller, ZLHeadlessStreams streams, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
    , m_streams(std::move(streams))
{
}

ZLHeadlessRecorder::~ZLHeadlessRecorder() = default;

void ZLHeadlessRecorder::showRemoteControl(const ZLOSCController& oscController)
{
    m_oscController = &oscController;
    connect(&oscController.inPort(), &ZLOSCInPort::portDidChange, this, &ZLHeadlessRecorder::printPort);
}

ZLStatus ZLHeadlessRecorder::start(const std::optional<QString>& file, ZLHeadlessStart headlessStart)
{
    // A reader of our output that goes away must not take the recording with it.
    std::signal(SIGPIPE, SIG_IGN);
    m_signals = new ZLSignalWatcher({ SIGINT, SIGTERM, SIGHUP }, this);
    connect(m_signals, &ZLSignalWatcher::didReceiveSignal, this, &ZLHeadlessRecorder::terminate);
    if (file) {
        if (const auto opened = m_controller.openDocument(*file, ZLMissingFile::Create); !opened)
            return opened.error();
    } else {
        const QStringList failures = m_controller.restoreSession();
        for (const QString& failure : failures)
            m_streams.complain(failure);
    }
    m_document = m_controller.currentOrLastDocument();
    m_reported = takeSnapshot();
    watchDocuments();
    printStatus({});
    print(u"Commands come from standard input, one a line; \"help\" lists them."_s);
    const QString otherHolder = m_controller.saverOf(m_document)->otherHolder();
    if (!otherHolder.isEmpty())
        m_streams.complain(u"The file is also open elsewhere (%1)."_s.arg(otherHolder));
    reportInterruption();
    // Who told it to record means the show that goes on meanwhile, also after a crash.
    if (headlessStart == ZLHeadlessStart::Recording && m_document->interruptedRecording())
        continueRecording({});
    else if (headlessStart == ZLHeadlessStart::Recording)
        performAction(*ZLRemoteActions::withIdentifier(ZLControllerToggleRecordingAction));
    openInput();
    return ZLDone {};
}

void ZLHeadlessRecorder::handleLine(const QString& line)
{
    const QString text = line.trimmed();
    const QString name = text.section(u' ', 0, 0);
    if (name.isEmpty())
        return;
    if (const ZLRemoteAction* action = ZLRemoteActions::withCommandWord(name)) {
        performAction(*action);
        return;
    }
    const auto& table = commands();
    const auto found = std::ranges::find(table, name, &Command::name);
    if (found == table.end()) {
        m_streams.complain(u"Unknown command \"%1\"; \"help\" lists the commands."_s.arg(titleForLine(name)));
        return;
    }
    m_hasPrinted = false;
    (this->*found->perform)(text.sliced(name.size()).trimmed());
    report();
    if (!m_hasPrinted && !found->withoutEffect.isEmpty())
        print(found->withoutEffect);
}

void ZLHeadlessRecorder::terminate()
{
    const QStringList failures = m_controller.saveAllNow();
    for (const QString& failure : failures)
        m_streams.complain(u"Cannot save: "_s + failure);
    Q_EMIT didFinish(failures.isEmpty() ? ZLExitStatus::Done : ZLExitStatus::Failed);
}

void ZLHeadlessRecorder::openInput()
{
    if (m_streams.inputDescriptor < 0)
        return;
    m_input = new ZLLineReader(m_streams.inputDescriptor, this);
    connect(m_input, &ZLLineReader::didReadLine, this, &ZLHeadlessRecorder::handleLine);
}

void ZLHeadlessRecorder::watchDocuments()
{
    connect(m_document, &ZLChapterDocument::controllersShouldBeInformed, this, &ZLHeadlessRecorder::scheduleReport);
    connect(m_document, &ZLChapterDocument::recordingStateDidChange, this, &ZLHeadlessRecorder::scheduleReport);
    const auto documents = m_controller.documents();
    for (const ZLChapterDocument* document : documents) {
        const ZLDocumentSaver* saver = m_controller.saverOf(document);
        connect(saver, &ZLDocumentSaver::stateDidChange, this, [this, saver] { reportSaving(*saver); });
    }
}

void ZLHeadlessRecorder::scheduleReport()
{
    // The signals come in the middle of an operation; what came of it is to be seen after its end.
    if (std::exchange(m_isReportDue, true))
        return;
    QMetaObject::invokeMethod(this, &ZLHeadlessRecorder::report, Qt::QueuedConnection);
}

void ZLHeadlessRecorder::report()
{
    m_isReportDue = false;
    const Snapshot now = takeSnapshot();
    if (now.isRecording != m_reported.isRecording)
        print((now.isRecording ? u"recording from %1"_s : u"paused at %1"_s).arg(m_document->clockText()));
    if (now.chapters != m_reported.chapters)
        reportChapters(now);
    else if (now.selectedChapter && now.selectedChapter != m_reported.selectedChapter)
        print(u"selected "_s + describeChapter(now.chapters.indexOf(now.selectedChapter), *now.selectedChapter));
    m_reported = now;
}

void ZLHeadlessRecorder::reportChapters(const Snapshot& now)
{
    // A list of thousands changes in a row or two, so only what stands between its equal ends is looked at.
    const auto& old = m_reported.chapters;
    const auto [oldBegin, newBegin] = std::mismatch(old.begin(), old.end(), now.chapters.begin(), now.chapters.end());
    const auto [oldEnd, newEnd] = std::mismatch(old.rbegin(), std::make_reverse_iterator(oldBegin),
        now.chapters.rbegin(), std::make_reverse_iterator(newBegin));
    const QSet<ZLChapterPointer> before(oldBegin, oldEnd.base());
    const QSet<ZLChapterPointer> after(newBegin, newEnd.base());
    for (auto chapter = oldBegin; chapter != oldEnd.base(); ++chapter) {
        if (!after.contains(*chapter))
            print(u"removed "_s + describeChapter(chapter - old.begin(), **chapter));
    }
    for (auto chapter = newBegin; chapter != newEnd.base(); ++chapter) {
        if (!before.contains(*chapter))
            print(describeChapter(chapter - now.chapters.begin(), **chapter));
    }
}

void ZLHeadlessRecorder::reportSaving(const ZLDocumentSaver& saver)
{
    const QString failure = saver.failureText();
    if (std::exchange(m_reportedFailure, failure) == failure)
        return;
    if (failure.isEmpty())
        m_streams.complain(u"Saved again."_s);
    else if (saver.state() == ZLSavingState::Conflict)
        m_streams.complain(u"Cannot save: %1 \"mine\" writes over it, \"theirs\" takes it over, \"both\" goes on in a "
                           "new file."_s.arg(failure));
    else
        m_streams.complain(u"Cannot save: %1. Trying again until it works."_s.arg(failure));
}

void ZLHeadlessRecorder::reportInterruption()
{
    if (const auto& interruption = m_document->interruptedRecording())
        m_streams.complain(
            u"The recording was interrupted on %1 at %2. The clock stands: \"continue\" lets it run as if "
            "it had never stopped, \"keep\" keeps it paused."_s.arg(
                interruption->lastSeen.toLocalTime().toString(Qt::ISODate), m_document->clockText()));
}

void ZLHeadlessRecorder::print(const QString& line)
{
    m_hasPrinted = true;
    m_streams.print(line);
}

ZLHeadlessRecorder::Snapshot ZLHeadlessRecorder::takeSnapshot() const
{
    ZLChapterManager& manager = m_document->chapterManager();
    return {
        .isRecording = m_document->isRecording(),
        .chapters = manager.allChapters(),
        .selectedChapter = manager.chapterAtIndex(m_document->selectedRow()),
    };
}

const std::vector<ZLHeadlessRecorder::Command>& ZLHeadlessRecorder::commands()
{
    using Self = ZLHeadlessRecorder;
    static const std::vector<Command> table {
        { u"title"_s, u"give the selected chapter the title that follows"_s, u"no chapter is selected"_s,
            &Self::setTitle },
        { u"continue"_s, u"let the clock of an interrupted recording run as if it had never stopped"_s,
            u"no recording was interrupted"_s, &Self::continueRecording },
        { u"keep"_s, u"keep the clock of an interrupted recording paused at its last reading"_s,
            u"no recording was interrupted"_s, &Self::keepPaused },
        { u"mine"_s, u"write over what another program made of the file"_s, u"no other program changed the file"_s,
            &Self::keepMine },
        { u"theirs"_s, u"take over what another program made of the file"_s, u"no other program changed the file"_s,
            &Self::takeTheirs },
        { u"both"_s, u"leave the file to the other program and go on in a new one"_s,
            u"no other program changed the file"_s, &Self::keepBoth },
        { u"status"_s, u"tell the document, the clock and whether everything is saved"_s, {}, &Self::printStatus },
        { u"help"_s, u"list the commands"_s, {}, &Self::printHelp },
        { u"quit"_s, u"save and end; refused while the clock runs"_s, {}, &Self::quit },
    };
    return table;
}

void ZLHeadlessRecorder::performAction(const ZLRemoteAction& action)
{
    m_hasPrinted = false;
    (m_document->*ZLActionRouting::operationForAction(action.identifier))();
    report();
    if (!m_hasPrinted)
        print(u"did nothing: "_s + action.obstacle());
}

void ZLHeadlessRecorder::setTitle(const QString& title)
{
    const int row = m_document->selectedRow();
    const ZLChapterPointer chapter = m_document->chapterManager().chapterAtIndex(row);
    if (!chapter)
        return;
    m_document->updateChapterToTitle(chapter, title);
    m_document->informControllers();
    print(describeChapter(row, *chapter));
}

void ZLHeadlessRecorder::continueRecording(const QString&)
{
    m_document->continueInterruptedRecording();
    report();
}

void ZLHeadlessRecorder::keepPaused(const QString&)
{
    if (!m_document->interruptedRecording())
        return;
    m_document->keepInterruptedRecordingPaused();
    print(u"paused at %1"_s.arg(m_document->clockText()));
}

void ZLHeadlessRecorder::keepMine(const QString&)
{
    settleConflict([](ZLDocumentSaver& saver) { return saver.keepMine(); });
}

void ZLHeadlessRecorder::takeTheirs(const QString&)
{
    settleConflict([](ZLDocumentSaver& saver) { return saver.takeTheirs(); });
}

void ZLHeadlessRecorder::keepBoth(const QString&)
{
    settleConflict([](ZLDocumentSaver& saver) {
        const auto kept = saver.keepBoth();
        return kept ? ZLStatus(ZLDone {}) : ZLStatus(kept.error());
    });
}

void ZLHeadlessRecorder::settleConflict(const std::function<ZLStatus(ZLDocumentSaver&)>& decision)
{
    ZLDocumentSaver* saver = m_controller.saverOf(m_document);
    if (saver->state() != ZLSavingState::Conflict)
        return;
    if (const ZLStatus settled = decision(*saver); !settled)
        m_streams.complain(settled.error().message);
    print(u"file: %1, %2"_s.arg(saver->path(), describeSaving(*saver)));
}

void ZLHeadlessRecorder::printStatus(const QString&)
{
    const ZLDocumentSaver* saver = m_controller.saverOf(m_document);
    const Snapshot now = takeSnapshot();
    print(u"document: "_s
        + (saver->isUntitled() ? m_document->displayName() + u" (has no file yet, back at the next start)"_s
                               : saver->path()));
    print((now.isRecording ? u"clock: recording, %1"_s : u"clock: paused, %1"_s).arg(m_document->clockText()));
    print(u"chapters: %1"_s.arg(now.chapters.size()));
    if (now.selectedChapter)
        print(u"selected: "_s + describeChapter(m_document->selectedRow(), *now.selectedChapter));
    print(u"file: "_s + describeSaving(*saver));
    printPort();
}

void ZLHeadlessRecorder::printPort()
{
    if (!m_oscController)
        return;
    const ZLOSCInPort& port = m_oscController->inPort();
    if (port.port() != 0)
        print(u"OSC: UDP port %1"_s.arg(port.port()));
    else
        m_streams.complain(u"OSC: "_s + port.failure());
}

void ZLHeadlessRecorder::printHelp(const QString&)
{
    const auto printCommand = [this](const QString& name, const QString& description) {
        print(u"%1  %2"_s.arg(name.leftJustified(22), description));
    };
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        printCommand(action.commandWord(), action.summary());
    for (const Command& command : commands())
        printCommand(command.name, command.description);
}

void ZLHeadlessRecorder::quit(const QString&)
{
    if (m_controller.canTerminate())
        terminate();
    else
        m_streams.complain(u"The clock is running: toggleRecording first, then quit."_s);
}

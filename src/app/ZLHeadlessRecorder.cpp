#include "app/ZLHeadlessRecorder.h"

#include "app/ZLChapterChanges.h"
#include "app/ZLHeadlessSavingReports.h"
#include "commands/ZLRemoteActions.h"
#include "platform/ZLLineReader.h"
#include "platform/ZLShownText.h"
#include "platform/ZLSignalWatcher.h"
#include "remote/ZLOSCController.h"

#include <QFileInfo>

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
    std::fprintf(stream, "%s\n", qUtf8Printable(ZLShownText::asOneLine(line)));
    std::fflush(stream);
}

/// `chapter 3 at 00:01:05.300 "News"`
QString describeChapter(qsizetype index, const ZLChapter& chapter)
{
    return ZLHeadlessRecorder::tr("chapter %1 at %2 \"%3\"")
        .arg(QString::number(index + 1), chapter.timeString(), ZLShownText::asOneLine(chapter.title()));
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
    , m_savingReports(new ZLHeadlessSavingReports(controller, m_streams.complain, this))
{
}

ZLHeadlessRecorder::~ZLHeadlessRecorder() = default;

void ZLHeadlessRecorder::showRemoteControl(const ZLOSCController& oscController)
{
    m_oscController = &oscController;
    connect(&oscController.inPort(), &ZLOSCInPort::portDidChange, this, &ZLHeadlessRecorder::printPort);
}

ZLStatus ZLHeadlessRecorder::start(
    const std::optional<QString>& file, ZLHeadlessStart headlessStart, ZLMissingFile missingFile)
{
    // A reader of our output that goes away must not take the recording with it.
    std::signal(SIGPIPE, SIG_IGN);
    m_signals = new ZLSignalWatcher({ SIGINT, SIGTERM, SIGHUP }, this);
    connect(m_signals, &ZLSignalWatcher::didReceiveSignal, this, &ZLHeadlessRecorder::terminate);
    if (const ZLStatus opened = openDocuments(file, missingFile); !opened)
        return opened;
    m_reported = takeSnapshot();
    m_chapterChanges = std::make_unique<ZLChapterChanges>(m_document->chapterManager());
    watchDocuments();
    printStatus({});
    print(tr("Commands come from standard input, one a line; \"help\" lists them."));
    const QString otherHolder = m_controller.saverOf(m_document)->otherHolder();
    if (!otherHolder.isEmpty())
        m_streams.complain(tr("The file is also open elsewhere (%1).").arg(otherHolder));
    reportReadOnlyFile();
    reportInterruption();
    // Who told it to record means the show that goes on meanwhile, also after a crash.
    if (headlessStart == ZLHeadlessStart::Recording && m_document->interruptedRecording())
        continueRecording({});
    else if (headlessStart == ZLHeadlessStart::Recording)
        performAction(*ZLRemoteActions::withIdentifier(ZLControllerToggleRecordingAction));
    openInput();
    return ZLDone {};
}

ZLStatus ZLHeadlessRecorder::openDocuments(const std::optional<QString>& file, ZLMissingFile missingFile)
{
    if (!file) {
        const QStringList failures = m_controller.restoreSession();
        for (const QString& failure : failures)
            m_streams.complain(failure);
        m_document = m_controller.currentOrLastDocument();
        return ZLDone {};
    }
    const bool wasThere = QFileInfo::exists(*file);
    const auto opened = m_controller.openDocument(*file, missingFile);
    if (!opened)
        return opened.error();
    m_document = opened.value();
    const ZLDocumentSaver* saver = m_controller.saverOf(m_document);
    // What a journal brings back of a missing file is not new.
    if (!wasThere && !saver->hasContent())
        print(tr("new document: %1").arg(saver->path()));
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
        m_streams.complain(
            tr("Unknown command \"%1\"; \"help\" lists the commands.").arg(ZLShownText::asOneLine(name)));
        return;
    }
    m_hasPrinted = false;
    (this->*found->perform)(text.sliced(name.size()).trimmed());
    report();
    if (!m_hasPrinted && found->withoutEffect)
        print(tr(found->withoutEffect));
}

void ZLHeadlessRecorder::terminate()
{
    const QStringList failures = m_controller.saveAllNow();
    for (const QString& failure : failures)
        m_streams.complain(tr("Cannot save: %1").arg(failure));
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
    connect(m_document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        if (change.concerns(ZLDocumentChange::concerningControllers))
            scheduleReport();
        if (change.concerns(ZLDocumentChange::Sleeps))
            reportSleep();
    });
    m_savingReports->begin(m_document);
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
        print((now.isRecording ? tr("recording from %1") : tr("paused at %1")).arg(m_document->clockText()));
    if (!m_chapterChanges->isEmpty())
        reportChapters();
    else if (now.selectedChapter && now.selectedChapter != m_reported.selectedChapter)
        print(tr("selected %1").arg(describeChapter(m_document->selectedRow(), *now.selectedChapter)));
    m_reported = now;
}

void ZLHeadlessRecorder::reportChapters()
{
    const auto removed = m_chapterChanges->takeRemoved();
    for (const auto& [index, chapter] : removed)
        print(tr("deleted %1").arg(describeChapter(index, *chapter)));
    const auto added = m_chapterChanges->takeAdded();
    for (const auto& [index, chapter] : added)
        print(describeChapter(index, *chapter));
}

void ZLHeadlessRecorder::reportReadOnlyFile()
{
    const ZLDocumentSaver* saver = m_controller.saverOf(m_document);
    if (!saver->isUntitled() && ZLAtomicFile::isReadOnly(saver->path()))
        m_streams.complain(
            tr("%1 is read-only: what changes is kept, but cannot be written to it.").arg(saver->path()));
}

void ZLHeadlessRecorder::reportInterruption()
{
    if (const auto& interruption = m_document->interruptedRecording())
        m_streams.complain(
            tr("The recording was interrupted on %1 at %2. The clock is paused: \"continue\" lets it run as if "
               "it had never stopped, \"keep\" keeps it paused.")
                .arg(interruption->lastSeen.toLocalTime().toString(Qt::ISODate), m_document->clockText()));
}

void ZLHeadlessRecorder::print(const QString& line)
{
    m_hasPrinted = true;
    m_streams.print(line);
}

ZLHeadlessRecorder::Snapshot ZLHeadlessRecorder::takeSnapshot() const
{
    return {
        .isRecording = m_document->isRecording(),
        .selectedChapter = m_document->chapterManager().chapterAtIndex(m_document->selectedRow()),
    };
}

const std::vector<ZLHeadlessRecorder::Command>& ZLHeadlessRecorder::commands()
{
    using Self = ZLHeadlessRecorder;
    static const std::vector<Command> table {
        { u"title"_s, QT_TR_NOOP("give the selected chapter the title that follows"),
            QT_TR_NOOP("no chapter is selected"), &Self::setTitle },
        { u"continue"_s, QT_TR_NOOP("let the clock of an interrupted recording run as if it had never stopped"),
            QT_TR_NOOP("no recording was interrupted"), &Self::continueRecording },
        { u"keep"_s, QT_TR_NOOP("keep the clock of an interrupted recording paused at its last reading"),
            QT_TR_NOOP("no recording was interrupted"), &Self::keepPaused },
        { u"addsleep"_s, QT_TR_NOOP("add the time for which the computer slept to the clock and the chapters after it"),
            QT_TR_NOOP("the computer did not sleep"), &Self::addSleptTime },
        { u"leavesleep"_s, QT_TR_NOOP("leave out the time for which the computer slept"),
            QT_TR_NOOP("the computer did not sleep"), &Self::leaveSleptTime },
        { u"mine"_s, QT_TR_NOOP("write over what another program made of the file"),
            QT_TR_NOOP("no other program changed the file"), &Self::keepMine },
        { u"theirs"_s, QT_TR_NOOP("take over what another program made of the file"),
            QT_TR_NOOP("no other program changed the file"), &Self::takeTheirs },
        { u"both"_s, QT_TR_NOOP("leave the file to the other program and go on in a new one"),
            QT_TR_NOOP("no other program changed the file"), &Self::keepBoth },
        { u"status"_s, QT_TR_NOOP("tell the document, the clock and whether everything is saved"), nullptr,
            &Self::printStatus },
        { u"help"_s, QT_TR_NOOP("list the commands"), nullptr, &Self::printHelp },
        { u"quit"_s, QT_TR_NOOP("save and end; refused while the clock runs"), nullptr, &Self::quit },
    };
    return table;
}

void ZLHeadlessRecorder::performAction(const ZLRemoteAction& action)
{
    m_hasPrinted = false;
    (m_document->*ZLRemoteActions::operationForAction(action.identifier))();
    report();
    if (!m_hasPrinted)
        print(tr("did nothing: %1").arg(action.obstacle()));
}

void ZLHeadlessRecorder::setTitle(const QString& title)
{
    const int row = m_document->selectedRow();
    const ZLChapterPointer chapter = m_document->chapterManager().chapterAtIndex(row);
    if (!chapter)
        return;
    m_document->updateChapterToTitle(chapter, title);
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
    print(tr("paused at %1").arg(m_document->clockText()));
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
    settleConflict([](ZLDocumentSaver& saver) { return saver.keepBoth(); });
}

void ZLHeadlessRecorder::settleConflict(const std::function<ZLStatus(ZLDocumentSaver&)>& decision)
{
    ZLDocumentSaver* saver = m_controller.saverOf(m_document);
    if (saver->state() != ZLSavingState::Conflict)
        return;
    if (const ZLStatus settled = decision(*saver); !settled)
        m_streams.complain(settled.error().message);
    print(tr("file: %1, %2").arg(saver->path(), ZLHeadlessSavingReports::describe(*saver)));
}

void ZLHeadlessRecorder::printStatus(const QString&)
{
    const ZLDocumentSaver* saver = m_controller.saverOf(m_document);
    const Snapshot now = takeSnapshot();
    print(saver->isUntitled() ? tr("document: %1 (not in a file yet, kept safe)").arg(m_document->displayName())
                              : tr("document: %1").arg(saver->path()));
    print((now.isRecording ? tr("clock: recording, %1") : tr("clock: paused, %1")).arg(m_document->clockText()));
    print(tr("chapters: %1").arg(m_document->chapterManager().count()));
    if (now.selectedChapter)
        print(tr("selected: %1").arg(describeChapter(m_document->selectedRow(), *now.selectedChapter)));
    print(tr("file: %1").arg(ZLHeadlessSavingReports::describe(*saver)));
    printOtherDocuments();
    printPort();
}

void ZLHeadlessRecorder::printOtherDocuments()
{
    const auto documents = m_controller.documents();
    for (const ZLChapterDocument* document : documents) {
        const ZLDocumentSaver& saver = *m_controller.saverOf(document);
        if (document != m_document)
            print(tr("also open: %1, %2")
                    .arg(ZLHeadlessSavingReports::nameOf(*document, saver), ZLHeadlessSavingReports::describe(saver)));
    }
}

void ZLHeadlessRecorder::printPort()
{
    if (!m_oscController)
        return;
    const ZLOSCInPort& port = m_oscController->inPort();
    if (port.port() != 0)
        print(tr("OSC: UDP port %1").arg(port.port()));
    else
        m_streams.complain(tr("OSC: %1").arg(port.failure()));
}

void ZLHeadlessRecorder::printHelp(const QString&)
{
    const auto printCommand = [this](const QString& name, const QString& description) {
        print(u"%1  %2"_s.arg(name.leftJustified(22), description));
    };
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        printCommand(action.commandWord(), action.summary());
    for (const Command& command : commands())
        printCommand(command.name, tr(command.description));
}

void ZLHeadlessRecorder::quit(const QString&)
{
    if (m_controller.canTerminate())
        terminate();
    else
        m_streams.complain(tr("The clock is running: toggleRecording first, then quit."));
}

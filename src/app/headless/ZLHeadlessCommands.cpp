#include "app/headless/ZLHeadlessCommands.h"

#include "app/headless/ZLHeadlessConcerns.h"
#include "app/headless/ZLHeadlessReport.h"
#include "commands/ZLRemoteActions.h"

#include <QPointer>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

ZLHeadlessCommands::ZLHeadlessCommands(
    ZLChapterDocument& document, ZLHeadlessReport& report, ZLHeadlessConcerns& concerns, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_report(report)
    , m_concerns(concerns)
{
}

bool ZLHeadlessCommands::perform(const QString& line)
{
    const QString name = line.section(u' ', 0, 0);
    if (const ZLRemoteAction* action = ZLRemoteActions::withCommandWord(name)) {
        performAction(*action);
        return true;
    }
    if (const ZLConcernChoice* choice = ZLConcernChoices::withWord(name)) {
        performChoice(*choice);
        return true;
    }
    const auto own = ownCommands();
    const auto found =
        std::ranges::find_if(own, [&name](const Own& command) { return name == QLatin1StringView(command.name); });
    if (found == own.end())
        return false;
    (this->*found->perform)(line.sliced(name.size()).trimmed());
    m_report.printChanges();
    return true;
}

void ZLHeadlessCommands::performAction(const ZLRemoteAction& action)
{
    (void)m_report.takeHasPrinted();
    (m_document.*ZLRemoteActions::operationForAction(action.identifier))();
    m_report.printChanges();
    m_report.whenSafe([this, &action] {
        if (!m_report.takeHasPrinted())
            m_report.print(tr("did nothing: %1").arg(action.obstacle()));
    });
}

void ZLHeadlessCommands::performChoice(const ZLConcernChoice& choice)
{
    const auto tell = [commands = QPointer(this), action = choice.action] {
        if (commands)
            commands->m_report.whenSafe([commands, action] { commands->printOutcome(action); });
    };
    if (!m_concerns.choose(choice.action, tell))
        m_report.print(choice.obstacle());
}

void ZLHeadlessCommands::printOutcome(ZLConcernAction action)
{
    using Action = ZLConcernAction;
    switch (action) {
    case Action::StayPaused:
        m_report.printClock(tr("paused at %1"));
        break;
    case Action::AddSleptTime:
    case Action::LeaveSleptTime:
    case Action::TakeRecordersTime:
    case Action::KeepZeltasTime:
        m_report.printClock(tr("the clock reads %1"));
        break;
    case Action::KeepMine:
    case Action::TakeTheirs:
    case Action::KeepBoth:
        m_report.printFile();
        break;
    case Action::ContinueRecording:
    case Action::TryNow:
    case Action::SaveAs:
    case Action::Dismiss:
        break;
    }
    m_report.printChanges();
}

void ZLHeadlessCommands::setTitle(const QString& title)
{
    const ZLChapterPointer chapter = m_document.chapterManager().chapterAtIndex(m_document.selectedRow());
    if (!chapter) {
        m_report.print(tr("no chapter is selected"));
        return;
    }
    m_document.updateChapterToTitle(chapter, title);
    m_report.whenSafe([this] { m_report.printSelectedChapter(u"%1"_s); });
}

void ZLHeadlessCommands::printStatus(const QString&)
{
    m_report.printStatus();
}

void ZLHeadlessCommands::printHelp(const QString&)
{
    const auto printCommand = [this](const QString& name, const QString& description) {
        m_report.print(u"%1  %2"_s.arg(name.leftJustified(22), description));
    };
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        printCommand(action.commandWord(), action.summary());
    for (const ZLConcernChoice& choice : ZLConcernChoices::all()) {
        if (choice.wordText)
            printCommand(choice.word(), choice.summary());
    }
    for (const Own& command : ownCommands())
        printCommand(QString::fromLatin1(command.name), tr(command.description));
}

void ZLHeadlessCommands::quit(const QString&)
{
    Q_EMIT quitRequested();
}

std::span<const ZLHeadlessCommands::Own> ZLHeadlessCommands::ownCommands()
{
    using Self = ZLHeadlessCommands;
    static constexpr std::array table {
        Own { "title", QT_TR_NOOP("give the selected chapter the title that follows"), &Self::setTitle },
        Own {
            "status", QT_TR_NOOP("tell the document, the clock and whether everything is saved"), &Self::printStatus },
        Own { "help", QT_TR_NOOP("list the commands"), &Self::printHelp },
        Own { "quit", QT_TR_NOOP("save and end; refused while the clock runs"), &Self::quit },
    };
    return table;
}

#include "app/ui/menus/ZLRevertMenu.h"

#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"

#include <QLocale>
#include <QPointer>
#include <QTimeZone>

using namespace Qt::StringLiterals;

ZLRevertMenu::ZLRevertMenu(ZLDocumentController& controller, ZLChapterDocumentWindow& window, QWidget* parent)
    : QMenu(tr("Revert &To"), parent)
    , m_controller(controller)
    , m_window(window)
{
    setObjectName(u"revertMenu"_s);
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &ZLRevertMenu::fill);
    addNothing();
}

QString ZLRevertMenu::textFor(const ZLDocumentState& state, const QDateTime& now)
{
    const QDateTime time = state.time.toTimeZone(now.timeZone());
    const QString clock = QLocale().toString(time.time(), QLocale::ShortFormat);
    const qint64 days = time.date().daysTo(now.date());
    QString moment = tr("%1 %2").arg(QLocale().toString(time.date(), QLocale::ShortFormat), clock);
    if (days == 0)
        moment = tr("Today %1").arg(clock);
    else if (days == 1)
        moment = tr("Yesterday %1").arg(clock);
    const QString chapters = state.chapterCount == 1 ? tr("1 chapter") : tr("%1 chapters").arg(state.chapterCount);
    return u"%1 — %2"_s.arg(moment, chapters);
}

void ZLRevertMenu::fill()
{
    if (m_look.isUnderWay())
        return;
    const ZLDocumentSaver* saver = m_controller.saverOf(&m_window.document());
    const auto history = saver ? saver->history() : std::nullopt;
    if (!history) {
        listStates({});
        return;
    }
    clear();
    addLine(tr("Looking for Earlier States…"), u"lookingForFormerStates"_s);
    m_look.start([this, history](const ZLDiskWork::Teller& tell) {
        tell([this, states = history->states()] { listStates(states); });
    });
}

void ZLRevertMenu::listStates(const QList<ZLDocumentState>& states)
{
    clear();
    for (qsizetype index = 0; index < states.size(); ++index)
        addState(states.at(index), index + 1);
    if (states.isEmpty())
        addNothing();
}

void ZLRevertMenu::addNothing()
{
    addLine(tr("No Earlier States Yet"), u"noFormerState"_s);
}

void ZLRevertMenu::addLine(const QString& text, const QString& name)
{
    QAction* line = addAction(text);
    line->setObjectName(name);
    line->setEnabled(false);
}

void ZLRevertMenu::addState(const ZLDocumentState& state, qsizetype number)
{
    QAction* action = addAction(textFor(state, m_window.document().wallClockTime().toLocalTime()));
    action->setObjectName(u"formerState%1"_s.arg(number));
    action->setToolTip(tr("Bring back the chapters, the templates and the recorded time of %1. You can undo it.")
            .arg(QLocale().toString(state.time.toLocalTime(), QLocale::LongFormat)));
    connect(action, &QAction::triggered, this, [this, state] { revertTo(state); });
}

void ZLRevertMenu::revertTo(const ZLDocumentState& state)
{
    m_window.commitTypedText();
    ZLDocumentSaver* saver = m_controller.saverOf(&m_window.document());
    if (saver)
        saver->revertTo(state, [menu = QPointer(this)](const ZLStatus& reverted) {
            if (menu)
                menu->showOutcome(reverted);
        });
}

void ZLRevertMenu::showOutcome(const ZLStatus& reverted)
{
    if (!reverted)
        m_window.messageBar().showMessage(
            u"revertFailure"_s, reverted.error().message, { { tr("Dismiss"), [] { } } }, {}, ZLMessageBar::Kind::Error);
    else
        m_window.messageBar().hideMessage(u"revertFailure"_s);
}

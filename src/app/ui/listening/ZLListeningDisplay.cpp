#include "app/ui/listening/ZLListeningDisplay.h"

#include "app/ui/listening/ZLListeningLamp.h"
#include "app/ui/listening/ZLListeningMenu.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "document/ui/menus/ZLEditMenu.h"
#include "document/ui/menus/ZLRecordingMenu.h"
#include "settings/ZLListeningSettings.h"

#include <QAction>
#include <QCursor>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString listeningPartName = QStringLiteral("listening");
const QString listeningQuestionName = QStringLiteral("listenAlong");

}

ZLListeningDisplay::ZLListeningDisplay(ZLShowListening& shows, QObject* parent)
    : QObject(parent)
    , m_shows(shows)
{
    connect(&shows, &ZLShowListening::didChange, this, &ZLListeningDisplay::showState);
    connect(&shows.listening(), &ZLListening::levelDidChange, this, &ZLListeningDisplay::showLevel);
    if (ZLListeningSettings::isOn())
        begin();
}

void ZLListeningDisplay::addWindow(ZLChapterDocumentWindow& window)
{
    m_windows.removeAll(nullptr);
    m_windows.append(&window);
    addListenMenu(window);
    addRemoveItem(window);
    showStateIn(window);
}

void ZLListeningDisplay::addListenMenu(ZLChapterDocumentWindow& window)
{
    auto* menu = new ZLListeningMenu(m_shows.listening(), &window);
    connect(menu, &ZLListeningMenu::switchRequested, this, [this, &window](bool on) { switchTo(window, on); });
    connect(menu, &ZLListeningMenu::sourceRequested, this, &ZLListeningDisplay::choose);
    window.recordingMenu().menu()->addSeparator();
    window.recordingMenu().menu()->addMenu(menu);
    connect(&window.statusLine(), &ZLStatusLine::partClicked, menu, [menu](const QString& name) {
        if (name == listeningPartName)
            menu->popup(QCursor::pos());
    });
}

void ZLListeningDisplay::addRemoveItem(ZLChapterDocumentWindow& window)
{
    QMenu* menu = window.editMenu().menu();
    menu->addSeparator();
    QAction* remove = ZLActionHelp::addAction(*menu, u"removeListeningData"_s, tr("Remove Listening Data"));
    const auto along = [this, &window] { return m_shows.of(window.document()); };
    const auto validate = [remove, along] { remove->setEnabled(along() && along()->hasData()); };
    connect(menu, &QMenu::aboutToShow, remove, validate);
    connect(&window.document(), &ZLChapterDocument::changed, remove, [validate](const ZLDocumentChange& change) {
        if (change.concerns(ZLDocumentChange::Extras))
            validate();
    });
    connect(remove, &QAction::triggered, this, [along] {
        if (along())
            along()->removeData();
    });
    validate();
}

void ZLListeningDisplay::switchTo(ZLChapterDocumentWindow& window, bool on)
{
    if (on && !ZLListeningSettings::isAgreed()) {
        askFirst(window);
        return;
    }
    ZLListeningSettings::setOn(on);
    if (on)
        begin();
    else
        m_shows.listening().stop();
}

void ZLListeningDisplay::askFirst(ZLChapterDocumentWindow& window)
{
    const QString question =
        tr("Listen along? While the clock runs, Zelta then keeps how the show sounds, so that the "
           "marks can be found in the finished file. No sound is kept: only 32 bits every 20 ms, which "
           "cannot be played back as sound. They are in the document, and can be removed again.");
    const auto agree = [this, &window] {
        ZLListeningSettings::setAgreed();
        switchTo(window, true);
    };
    window.messageBar().showMessage(
        listeningQuestionName, question, { { tr("Listen Along"), agree }, { tr("Cancel"), [] { } } });
    window.messageBar().takeKeyboardFor(listeningQuestionName);
}

void ZLListeningDisplay::begin()
{
    m_shows.listening().listenTo(ZLListeningSettings::source());
}

void ZLListeningDisplay::choose(const QString& source)
{
    ZLListeningSettings::setSource(source);
    if (m_shows.listening().isOn())
        begin();
}

void ZLListeningDisplay::showState()
{
    m_bars = ZLListeningLamp::litBars(m_shows.listening().level());
    for (const auto& window : std::as_const(m_windows)) {
        if (window)
            showStateIn(*window);
    }
    tellTrouble();
}

void ZLListeningDisplay::showLevel()
{
    // Many times a second, and mostly the same.
    const int bars = ZLListeningLamp::litBars(m_shows.listening().level());
    if (std::exchange(m_bars, bars) == bars)
        return;
    for (const auto& window : std::as_const(m_windows)) {
        if (window)
            window->statusLine().setPartIcon(listeningPartName,
                ZLListeningLamp::icon(m_shows.listening().state(), bars, window->palette()), ZLListeningLamp::Size);
    }
}

void ZLListeningDisplay::showStateIn(const ZLChapterDocumentWindow& window) const
{
    ZLStatusLine& statusLine = window.statusLine();
    statusLine.setPart(listeningPartName, stateText(), stateToolTip());
    statusLine.setPartIcon(listeningPartName,
        ZLListeningLamp::icon(m_shows.listening().state(), m_bars, window.palette()), ZLListeningLamp::Size);
}

void ZLListeningDisplay::tellTrouble()
{
    const QString trouble = m_shows.trouble();
    if (std::exchange(m_trouble, trouble) == trouble || trouble.isEmpty())
        return;
    for (const auto& window : std::as_const(m_windows)) {
        if (window)
            window->statusLine().showPassingMessage(trouble);
    }
}

QString ZLListeningDisplay::stateText() const
{
    switch (m_shows.listening().state()) {
    case ZLListeningState::Off:
        break;
    case ZLListeningState::NoServer:
    case ZLListeningState::Missing:
        return tr("No input");
    case ZLListeningState::Silent:
        return tr("Silence");
    case ZLListeningState::Opening:
    case ZLListeningState::Hearing:
        return tr("Listening");
    }
    return {};
}

QString ZLListeningDisplay::stateToolTip() const
{
    if (const QString trouble = m_shows.trouble(); !trouble.isEmpty())
        return trouble;
    const QString source = m_shows.listening().sourceName();
    if (m_shows.listening().state() == ZLListeningState::Silent)
        return tr("Nothing is heard from “%1”.").arg(source);
    return tr("Zelta listens along to “%1” while the clock runs.").arg(source);
}

#include "app/ui/saving/ZLConcernDisplay.h"

#include "app/ui/saving/ZLSavePanel.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"

#include <utility>

ZLConcernDisplay::ZLConcernDisplay(ZLDocumentSaver& saver, ZLSavePanel& savePanel, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_concerns(window.document(), saver, ZLConcernReader::Window)
    , m_savePanel(savePanel)
    , m_window(window)
{
    connect(&m_concerns, &ZLDocumentConcerns::didChange, this, &ZLConcernDisplay::update);
    update();
}

void ZLConcernDisplay::update()
{
    const QStringList formerNames = std::exchange(m_shownNames, {});
    const auto concerns = m_concerns.all();
    for (const ZLConcern& concern : concerns) {
        m_shownNames.append(concern.name);
        show(concern);
    }
    for (const QString& name : formerNames) {
        if (!m_shownNames.contains(name))
            m_window.messageBar().hideMessage(name);
    }
}

void ZLConcernDisplay::show(const ZLConcern& concern)
{
    // Shown anew with every change, it would be read aloud every time.
    if (m_window.messageBar().text(concern.name) == concern.sentence)
        return;
    QList<ZLMessageBar::Button> buttons;
    for (const ZLConcernAction action : concern.choices)
        buttons.append({ ZLConcernChoices::of(action).label(), [this, concern, action] { choose(concern, action); } });
    m_window.messageBar().showMessage(concern.name, concern.sentence, buttons, concern.coveredNames,
        concern.isError ? ZLMessageBar::Kind::Error : ZLMessageBar::Kind::Question);
}

void ZLConcernDisplay::choose(const ZLConcern& concern, ZLConcernAction action)
{
    // What came of another choice is to be seen in the bar.
    if (action != ZLConcernAction::SaveAs) {
        m_concerns.choose(concern, action, [](const ZLStatus&) { });
        return;
    }
    // Until the new place is known, what is true stays in sight.
    update();
    m_savePanel.saveAs();
}

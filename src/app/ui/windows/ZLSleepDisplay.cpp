#include "app/ui/windows/ZLSleepDisplay.h"

#include "app/ZLSleepText.h"
#include "document/ZLChapterDocument.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"

using namespace Qt::StringLiterals;

ZLSleepDisplay::ZLSleepDisplay(ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_window(window)
{
    connect(&window.document(), &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        // Undoing the start of the recording takes away what could be decided.
        if (change.concerns(ZLDocumentChange::Sleeps | ZLDocumentChange::Recording))
            update();
    });
}

void ZLSleepDisplay::update()
{
    const QString name = u"sleep"_s;
    ZLMessageBar& bar = m_window.messageBar();
    ZLChapterDocument* document = &m_window.document();
    const QString text = ZLSleepText::sentence(document->undecidedSleeps());
    if (text.isEmpty())
        bar.hideMessage(name);
    // Shown anew it would be read aloud once more.
    else if (bar.text(name) != text)
        bar.showMessage(name, text,
            { { tr("Add That Time"), [document] { document->addSleptTime(); } },
                { tr("Leave It Out"), [document] { document->leaveSleptTime(); } } });
}

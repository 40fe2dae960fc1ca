#include "app/ui/menus/ZLWindowMenu.h"

#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/menus/ZLActionHelp.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostNumberedWindows = 9;

}

ZLWindowMenu::ZLWindowMenu(ZLDocumentController& controller, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_controller(controller)
    , m_window(window)
    , m_menu(window.menuBar()->addMenu(tr("&Window")))
{
    m_menu->setObjectName(u"windowMenu"_s);
    m_menu->setToolTipsVisible(true);
    addCommands();
    m_menu->addSeparator();
    connect(m_menu, &QMenu::aboutToShow, this, &ZLWindowMenu::listDocuments);
    listDocuments();
}

void ZLWindowMenu::addCommands()
{
    connect(ZLActionHelp::addAction(*m_menu, u"minimize"_s, tr("Mi&nimize"), {}), &QAction::triggered, &m_window,
        &QWidget::showMinimized);
    m_menu->addSeparator();
    const auto addNeighbour = [this](const QString& name, const QString& title, const QString& key, qsizetype step) {
        QAction* action = ZLActionHelp::addAction(*m_menu, name, title, QKeySequence(key));
        connect(action, &QAction::triggered, this, [this, step] { requestNeighbour(step); });
        m_neighbourItems.append(action);
    };
    addNeighbour(u"nextWindow"_s, tr("Ne&xt Window"), u"Ctrl+F6"_s, 1);
    addNeighbour(u"previousWindow"_s, tr("&Previous Window"), u"Ctrl+Shift+F6"_s, -1);
}

void ZLWindowMenu::listDocuments()
{
    qDeleteAll(m_documentItems);
    m_documentItems.clear();
    const QList<ZLChapterDocument*> documents = m_controller.documents();
    for (ZLChapterDocument* document : documents) {
        const qsizetype number = m_documentItems.size() + 1;
        QAction* item = ZLActionHelp::addAction(*m_menu, u"showWindow%1"_s.arg(number), titleOf(*document, number), {});
        item->setCheckable(true);
        item->setChecked(document == &m_window.document());
        // It may be closed while the menu is open.
        connect(item, &QAction::triggered, this, [this, wanted = QPointer(document)] {
            if (wanted)
                Q_EMIT windowRequested(wanted);
        });
        m_documentItems.append(item);
    }
}

void ZLWindowMenu::requestNeighbour(qsizetype step)
{
    const QList<ZLChapterDocument*> documents = m_controller.documents();
    const qsizetype present = documents.indexOf(&m_window.document());
    if (present >= 0)
        Q_EMIT windowRequested(documents.at((present + step + documents.size()) % documents.size()));
}

QString ZLWindowMenu::titleOf(const ZLChapterDocument& document, qsizetype number)
{
    QString title = document.displayName();
    title.replace(u'&', "&&"_L1);
    if (document.isRecording())
        title = tr("%1 (recording)").arg(title);
    return number <= mostNumberedWindows ? u"&%1 %2"_s.arg(number).arg(title) : title;
}

#include "app/ui/windows/ZLFitDisplay.h"

#include "app/ZLDocumentController.h"
#include "delivery/fit/ZLFitDraft.h"
#include "delivery/fit/ui/ZLFitSheet.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/table/ZLChapterTableView.h"
#include "resources/sounds/ZLSoundResource.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

/// How the sheet and the table share the height of the window: what is fitted is in the sheet's own table, too.
constexpr int shareOfFitSheet = 5;
constexpr int shareOfTable = 1;

}

ZLFitDisplay::ZLFitDisplay(
    ZLDocumentController& controller, ZLChapterDocumentWindow& window, const ZLSoundExcerpt::SoundMaker& soundMaker)
    : QObject(&window)
    , m_controller(controller)
    , m_window(window)
    , m_memory(ZLStateFolder::path(), ZLAudioFileMemory::FittedFiles)
    , m_draft(new ZLFitDraft(window.document(), this))
    , m_excerpt(new ZLSoundExcerpt(soundMaker, this))
{
    m_draft->setBeep(ZLSoundResource::named(u"beep.aiff"_s));
    connect(m_draft, &ZLFitDraft::didEnd, this, &ZLFitDisplay::rememberFiles);
    connect(m_excerpt, &ZLSoundExcerpt::didFail, this,
        [this](const QString& reason) { m_window.statusLine().showPassingMessage(reason); });
}

void ZLFitDisplay::show()
{
    m_window.commitTypedText();
    if (!m_sheet)
        recallFiles();
    makeSheet();
    m_sheet->show();
    m_sheet->takeKeyboard();
}

void ZLFitDisplay::makeSheet()
{
    if (m_sheet)
        return;
    m_sheet = new ZLFitSheet(*m_draft, *m_window.menuBar(), m_window.centralWidget());
    if (const QString path = documentPath(); !path.isEmpty())
        m_sheet->setFolder(QFileInfo(path).absolutePath());
    connectSheet();
    // Between the messages and the table: neither the clock nor the newest mark is ever covered.
    auto* layout = qobject_cast<QBoxLayout*>(m_window.centralWidget()->layout());
    layout->insertWidget(layout->indexOf(&m_window.tableView()), m_sheet, shareOfFitSheet);
    layout->setStretchFactor(&m_window.tableView(), shareOfTable);
}

void ZLFitDisplay::connectSheet()
{
    connect(m_sheet, &ZLFitSheet::wantsToClose, this, &ZLFitDisplay::close);
    connect(m_sheet, &ZLFitSheet::hasNews, this,
        [this](const QString& text) { m_window.statusLine().showPassingMessage(text); });
    connect(m_sheet, &ZLFitSheet::playRequested, this,
        [this](double time) { m_excerpt->play(m_draft->finishedPath(), time); });
    connect(m_sheet, &ZLFitSheet::newDocumentRequested, this, &ZLFitDisplay::openFittedDocument);
    connect(m_sheet, &ZLFitSheet::writingRequested, this, &ZLFitDisplay::writeIntoFile);
}

void ZLFitDisplay::recallFiles()
{
    m_draft->setKnownPaths(m_memory.recall(documentPath()).paths);
    if (const auto kept = m_draft->keptFits(); !kept.isEmpty())
        m_draft->showKeptFit(kept.constFirst().identifier);
    m_draft->takeBestSource();
}

void ZLFitDisplay::rememberFiles()
{
    m_memory.remember(documentPath(), { .paths = m_draft->knownPaths() });
}

void ZLFitDisplay::openFittedDocument()
{
    Q_EMIT documentOpened(m_controller.openContents(m_draft->contentsOfFittedDocument()));
}

void ZLFitDisplay::writeIntoFile()
{
    const QString path = m_draft->finishedPath();
    close();
    Q_EMIT writingRequested(path);
}

void ZLFitDisplay::close()
{
    m_excerpt->stop();
    m_sheet->hide();
    m_window.tableView().setFocus();
}

QString ZLFitDisplay::documentPath() const
{
    const ZLDocumentSaver* saver = m_controller.saverOf(&m_window.document());
    return saver ? saver->path() : QString();
}

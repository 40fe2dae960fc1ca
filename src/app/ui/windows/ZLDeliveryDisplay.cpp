#include "app/ui/windows/ZLDeliveryDisplay.h"

#include "app/ZLDocumentController.h"
#include "delivery/ZLDeliveryDraft.h"
#include "delivery/ZLMediaImport.h"
#include "delivery/ZLRecordedChapters.h"
#include "delivery/fit/ZLFittedChapters.h"
#include "delivery/ui/ZLDeliverySheet.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/table/ZLChapterTableView.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QMenuBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// How the sheet and the table share the height of the window.
constexpr int sheetShare = 2;
constexpr int tableShare = 1;

}

ZLDeliveryDisplay::ZLDeliveryDisplay(ZLDocumentController& controller, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_controller(controller)
    , m_window(window)
    , m_memory(ZLStateFolder::path(), ZLAudioFileMemory::WrittenFiles)
    , m_draft(new ZLDeliveryDraft(window.document(), {}, this))
{
    m_draft->setCarrier([this](const QString& path, const ZLMediaContents& file) {
        const auto fitted = ZLFittedChapters::forFile(m_window.document(), path, file);
        return fitted ? fitted : ZLRecordedChapters::forFile(m_window.document(), path);
    });
    connect(m_draft, &ZLDeliveryDraft::didEndWriting, this,
        [this] { m_memory.remember(documentPath(), { .paths = m_draft->paths(), .shift = m_draft->shift() }); });
}

void ZLDeliveryDisplay::show()
{
    m_window.commitTypedText();
    if (m_draft->targets().isEmpty())
        recallFiles();
    else if (!m_sheet || m_sheet->isHidden())
        m_draft->setPaths(m_draft->paths()); // They may have changed since.
    makeSheet();
    m_sheet->show();
    m_sheet->takeKeyboard();
}

void ZLDeliveryDisplay::showFor(const QString& path)
{
    m_draft->setPaths({ path });
    show();
}

void ZLDeliveryDisplay::takeDroppedFiles(const QStringList& paths)
{
    QStringList audio = paths;
    QStringList others = paths;
    audio.removeIf([](const QString& path) { return !ZLMediaImport::isAudioFile(path); });
    others.removeIf([&audio](const QString& path) { return audio.contains(path); });
    if (!audio.isEmpty()) {
        m_draft->setPaths(audio);
        show();
    }
    if (!others.isEmpty())
        Q_EMIT openRequested(others);
}

void ZLDeliveryDisplay::makeSheet()
{
    if (m_sheet)
        return;
    m_sheet = new ZLDeliverySheet(*m_draft, *m_window.menuBar(), m_window.centralWidget());
    if (const QString path = documentPath(); !path.isEmpty())
        m_sheet->setFolder(QFileInfo(path).absolutePath());
    connect(m_sheet, &ZLDeliverySheet::wantsToClose, this, &ZLDeliveryDisplay::close);
    connect(m_sheet, &ZLDeliverySheet::hasNews, this,
        [this](const QString& text) { m_window.statusLine().showPassingMessage(text); });
    // Between the messages and the table: neither the clock nor the newest mark is ever covered.
    auto* layout = qobject_cast<QBoxLayout*>(m_window.centralWidget()->layout());
    layout->insertWidget(layout->indexOf(&m_window.tableView()), m_sheet, sheetShare);
    layout->setStretchFactor(&m_window.tableView(), tableShare);
}

void ZLDeliveryDisplay::recallFiles()
{
    const ZLRememberedAudio audio = m_memory.recall(documentPath());
    m_draft->setShift(audio.shift);
    m_draft->setPaths(audio.paths.isEmpty() ? ZLRecordedChapters::audioFiles(m_window.document()) : audio.paths);
}

void ZLDeliveryDisplay::close()
{
    m_sheet->hide();
    m_window.tableView().setFocus();
}

QString ZLDeliveryDisplay::documentPath() const
{
    const ZLDocumentSaver* saver = m_controller.saverOf(&m_window.document());
    return saver ? saver->path() : QString();
}

#include "delivery/ui/ZLDeliverySheet.h"

#include "delivery/ZLMediaImport.h"
#include "delivery/ui/ZLDeliveryComparison.h"
#include "delivery/ui/ZLDeliveryFileList.h"
#include "document/ui/ZLMnemonics.h"
#include "document/ui/ZLSheetParts.h"

#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

#include <algorithm>

using namespace Qt::StringLiterals;
using State = ZLDeliveryTarget::State;

namespace {

constexpr double longestShift = 24.0 * 3600.0;
constexpr int progressSteps = 1000;
constexpr int progressInterval = 100;

}

ZLDeliverySheet::ZLDeliverySheet(ZLDeliveryDraft& draft, const QMenuBar& menus, QWidget* parent)
    : QFrame(parent)
    , m_draft(draft)
    , m_files(ZLDeliveryFileList::make(draft, this))
    , m_choose(ZLSheetParts::button(u"chooseFiles"_s, this))
    , m_shiftLabel(new QLabel(this))
    , m_shift(new QDoubleSpinBox(this))
    , m_comparison(new ZLDeliveryComparison(this))
    , m_import(ZLSheetParts::button(u"importItsChapters"_s, this))
    , m_progress(new QProgressBar(this))
    , m_close(ZLSheetParts::button(u"closeSheet"_s, this))
    , m_write(ZLSheetParts::button(u"writeChapters"_s, this))
{
    setObjectName(u"deliverySheet"_s);
    setAccessibleName(tr("Write Chapters into Audio File"));
    setFrameShape(StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeBody(), 1);
    layout->addWidget(makeButtonRow());
    setTexts(menus);
    connectParts();
    update();
}

void ZLDeliverySheet::takeKeyboard()
{
    QWidget* const wanted = m_draft.targets().isEmpty() ? static_cast<QWidget*>(m_choose) : m_files;
    wanted->setFocus(Qt::ShortcutFocusReason);
}

void ZLDeliverySheet::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        dismiss();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        write();
    else
        QFrame::keyPressEvent(event);
}

QWidget* ZLDeliverySheet::makeBody()
{
    auto* body = new QWidget(this);
    auto* upper = new QHBoxLayout;
    upper->addWidget(m_files, 1);
    upper->addLayout(makeChoices());
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(upper);
    layout->addWidget(m_comparison, 1);
    return ZLSheetParts::scrolling(body, this);
}

QVBoxLayout* ZLDeliverySheet::makeChoices()
{
    m_shift->setObjectName(u"shift"_s);
    m_shift->setRange(-longestShift, longestShift);
    m_shift->setDecimals(3);
    m_shift->setAccessibleName(tr("Shift in seconds"));
    m_shift->setToolTip(tr("The chapters come this much later in the file than in the document, because of an intro."));
    m_shift->setValue(m_draft.shift());
    m_shiftLabel->setBuddy(m_shift);
    auto* shiftRow = new QHBoxLayout;
    shiftRow->addWidget(m_shiftLabel);
    shiftRow->addWidget(m_shift, 1);
    auto* choices = new QVBoxLayout;
    choices->addWidget(m_choose);
    choices->addLayout(shiftRow);
    choices->addStretch();
    return choices;
}

QWidget* ZLDeliverySheet::makeButtonRow()
{
    m_progress->setObjectName(u"deliveryProgress"_s);
    m_progress->setAccessibleName(tr("Progress of the writing"));
    m_progress->setRange(0, progressSteps);
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_import);
    layout->addWidget(m_progress, 1);
    layout->addStretch();
    layout->addWidget(m_close);
    layout->addWidget(m_write);
    return row;
}

void ZLDeliverySheet::setTexts(const QMenuBar& menus)
{
    ZLMnemonics mnemonics;
    mnemonics.leaveToMenus(menus);
    m_write->setText(mnemonics.withMnemonic(tr("Write")));
    m_choose->setText(mnemonics.withMnemonic(tr("Choose Files…")));
    m_import->setText(mnemonics.withMnemonic(tr("Import Its Chapters")));
    m_import->setToolTip(tr("Add the chapters that are in the selected file now to the document"));
    m_shiftLabel->setText(mnemonics.withMnemonic(tr("Shift (s):")));
    m_closeText = mnemonics.withMnemonic(tr("Close"));
    m_cancelText = mnemonics.withMnemonic(tr("Cancel"));
}

void ZLDeliverySheet::connectParts()
{
    connect(&m_draft, &ZLDeliveryDraft::didChange, this, &ZLDeliverySheet::update);
    connect(&m_draft, &ZLDeliveryDraft::didEndWriting, this, &ZLDeliverySheet::tellEnd);
    connect(m_choose, &QPushButton::clicked, this, &ZLDeliverySheet::chooseFiles);
    connect(m_shift, &QDoubleSpinBox::valueChanged, &m_draft, &ZLDeliveryDraft::setShift);
    connect(m_files->selectionModel(), &QItemSelectionModel::currentChanged, this, &ZLDeliverySheet::update);
    connect(m_import, &QPushButton::clicked, this, &ZLDeliverySheet::importChapters);
    connect(m_close, &QPushButton::clicked, this, &ZLDeliverySheet::dismiss);
    connect(m_write, &QPushButton::clicked, this, &ZLDeliverySheet::write);
    m_progressTimer.setInterval(progressInterval);
    connect(&m_progressTimer, &QTimer::timeout, this,
        [this] { m_progress->setValue(int(m_draft.fraction() * progressSteps)); });
}

void ZLDeliverySheet::update()
{
    if (!m_files->currentIndex().isValid() && !m_draft.targets().isEmpty())
        m_files->setCurrentIndex(m_files->model()->index(0, 0));
    const ZLDeliveryTarget target = selectedTarget();
    m_comparison->showTarget(target);
    const bool isWriting = m_draft.isWriting();
    const bool hadKeyboard = m_write->hasFocus() || m_choose->hasFocus() || m_import->hasFocus();
    m_choose->setEnabled(!isWriting);
    m_shift->setEnabled(!isWriting);
    m_import->setEnabled(!isWriting && target.plan && !target.plan->now.chapters.isEmpty());
    m_write->setEnabled(m_draft.canWrite());
    m_close->setText(isWriting ? m_cancelText : m_closeText);
    m_progress->setVisible(isWriting);
    if (isWriting != m_progressTimer.isActive()) {
        m_progress->setValue(0);
        if (isWriting)
            m_progressTimer.start();
        else
            m_progressTimer.stop();
    }
    // A button that goes out of service hands the keyboard on.
    if (hadKeyboard && !m_write->hasFocus() && !m_choose->hasFocus() && !m_import->hasFocus())
        m_close->setFocus();
}

void ZLDeliverySheet::chooseFiles()
{
    // It belongs to the window and stops nothing, for the clock may run.
    auto* dialog = new QFileDialog(window(), tr("Choose Audio Files"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(u"audioPanel"_s);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setNameFilters({ tr("Audio files (%1)").arg(ZLMediaImport::NamePatterns), tr("All files (*)") });
    const QString first = m_draft.paths().value(0);
    dialog->setDirectory(first.isEmpty() ? m_folder : QFileInfo(first).absolutePath());
    connect(dialog, &QFileDialog::filesSelected, &m_draft, &ZLDeliveryDraft::setPaths);
    connect(dialog, &QDialog::finished, this, [this] { takeKeyboard(); });
    dialog->show();
}

void ZLDeliverySheet::dismiss()
{
    if (m_draft.isWriting())
        m_draft.cancel();
    else
        Q_EMIT wantsToClose();
}

void ZLDeliverySheet::write()
{
    // What is still being typed counts.
    m_shift->interpretText();
    m_draft.write();
}

void ZLDeliverySheet::tellEnd()
{
    QStringList messages;
    for (const ZLDeliveryTarget& target : m_draft.targets()) {
        if (!target.message.isEmpty())
            messages.append(target.message);
    }
    if (messages.size() > 1) {
        const auto written = std::ranges::count(m_draft.targets(), State::Written, &ZLDeliveryTarget::state);
        Q_EMIT hasNews(tr("Chapters were written into %1 of %2 files.").arg(written).arg(m_draft.targets().size()));
    } else if (!messages.isEmpty()) {
        Q_EMIT hasNews(messages.constFirst());
    }
}

void ZLDeliverySheet::importChapters()
{
    const qsizetype count = m_draft.importChaptersOf(m_files->currentIndex().row());
    if (count > 0)
        Q_EMIT hasNews(tr("Imported chapters: %1").arg(count));
}

ZLDeliveryTarget ZLDeliverySheet::selectedTarget() const
{
    return m_draft.targets().value(m_files->currentIndex().row());
}

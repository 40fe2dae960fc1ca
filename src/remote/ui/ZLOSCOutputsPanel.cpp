#include "remote/ui/ZLOSCOutputsPanel.h"

#include "remote/ui/ZLOSCEntryEditor.h"
#include "templates/ui/ZLSelectionDelegate.h"

#include <QCheckBox>
#include <QEvent>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastOutputRows = 4;
constexpr int outputRowMargin = 6;

}

ZLOSCOutputsPanel::ZLOSCOutputsPanel(ZLOSCController& controller, QWidget* parent)
    : QGroupBox(tr("Outputs"), parent)
    , m_model(new ZLOSCOutputsModel(controller, this))
    , m_table(new QTableView(this))
    , m_editor(new ZLOSCEntryEditor(u"output"_s, tr("Host and port to send to"), tr("192.168.1.20:9000"), this))
    , m_answerBox(new QCheckBox(this))
{
    setObjectName(u"outputsPanel"_s);
    buildTable();
    buildAnswerBox();
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_table, 1);
    column->addWidget(m_editor);
    column->addWidget(m_answerBox);
    connect(m_editor, &ZLOSCEntryEditor::addRequested, this, &ZLOSCOutputsPanel::addOutput);
    connect(m_editor, &ZLOSCEntryEditor::removeRequested, this, &ZLOSCOutputsPanel::removeSelectedOutputs);
    connect(m_model, &ZLOSCOutputsModel::editWasRefused, m_editor, &ZLOSCEntryEditor::setProblem);
    updateSizes();
}

void ZLOSCOutputsPanel::buildTable()
{
    m_table->setObjectName(u"outputs"_s);
    m_table->setAccessibleName(tr("Outputs"));
    m_table->setModel(m_model);
    m_table->setItemDelegate(new ZLSelectionDelegate(m_table));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->horizontalHeader()->setStretchLastSection(true);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ZLOSCOutputsPanel::updateButtons);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &ZLOSCOutputsPanel::updateButtons);
}

void ZLOSCOutputsPanel::buildAnswerBox()
{
    m_answerBox->setObjectName(u"answerSenders"_s);
    m_answerBox->setText(
        tr("&Reply to senders of valid commands for %1 seconds").arg(ZLOSCAnsweredSenders::LifetimeInSeconds));
    m_answerBox->setToolTip(tr("Messages go to the address and port that the command came from."));
    const auto update = [this] {
        const QSignalBlocker blocker(m_answerBox);
        m_answerBox->setChecked(ZLSettingsManager::oscAnswersSenders());
    };
    connect(m_answerBox, &QCheckBox::toggled, this, &ZLSettingsManager::setOSCAnswersSenders);
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLOSCAnswerSendersSettingDidChange,
        m_answerBox, update);
    update();
}

void ZLOSCOutputsPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        updateSizes();
    QGroupBox::changeEvent(event);
}

void ZLOSCOutputsPanel::updateSizes()
{
    const int rowHeight = fontMetrics().height() + outputRowMargin;
    m_table->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_table->setMinimumHeight(rowHeight * (leastOutputRows + 1));
    m_table->setColumnWidth(ZLOSCOutputsModel::DestinationColumn, fontMetrics().averageCharWidth() * 26);
}

void ZLOSCOutputsPanel::addOutput(const QString& text)
{
    if (const QString problem = m_model->addOutput(text); !problem.isEmpty())
        m_editor->setProblem(problem);
    else
        m_editor->clear();
}

void ZLOSCOutputsPanel::removeSelectedOutputs()
{
    QList<int> rows;
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    for (const QModelIndex& index : selected)
        rows.append(index.row());
    std::ranges::sort(rows, std::greater());
    for (const int row : rows)
        m_model->removeOutput(row);
}

void ZLOSCOutputsPanel::updateButtons()
{
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    m_editor->setRemovable(
        std::ranges::any_of(selected, [this](const QModelIndex& index) { return m_model->isChangeable(index.row()); }));
}

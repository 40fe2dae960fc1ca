#include "import/ui/ZLImportSheet.h"

#include "document/ui/ZLMnemonics.h"
#include "document/ui/ZLSheetParts.h"
#include "import/ui/ZLImportRowsModel.h"
#include "platform/ZLLateRelease.h"
#include "platform/ZLShownText.h"
#include "templates/ui/ZLSelectionDelegate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTreeView>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double longestShiftInSeconds = 1000.0 * 3600.0;
/// So many remarks are seen at once.
constexpr int remarkLines = 4;

}

ZLImportSheet::ZLImportSheet(const QMenuBar& menus, QWidget* parent)
    : QFrame(parent)
    , m_model(new ZLImportRowsModel(this))
    , m_heading(new QLabel(this))
    , m_itemRow(new QWidget(this))
    , m_items(new QComboBox(m_itemRow))
    , m_rows(makeRows())
    , m_remarks(new QListWidget(this))
    , m_add(new QRadioButton(this))
    , m_replace(new QRadioButton(this))
    , m_shift(new QDoubleSpinBox(this))
    , m_shiftLabel(new QLabel(this))
    , m_templates(new QCheckBox(this))
    , m_cancel(ZLSheetParts::button(u"cancelImport"_s, this))
    , m_import(ZLSheetParts::button(u"importNow"_s, this))
{
    setObjectName(u"importSheet"_s);
    setAccessibleName(tr("Import Chapters"));
    setFrameShape(StyledPanel);
    auto* layout = new QVBoxLayout(this);
    m_heading->setObjectName(u"importHeading"_s);
    m_heading->setTextFormat(Qt::PlainText);
    m_heading->setWordWrap(true);
    layout->addWidget(m_heading);
    addItemRow(*layout);
    layout->addWidget(m_rows, 1);
    m_remarks->setObjectName(u"importRemarks"_s);
    m_remarks->setAccessibleName(tr("What was not understood"));
    m_remarks->setItemDelegate(new ZLSelectionDelegate(m_remarks));
    m_remarks->setWordWrap(true);
    layout->addWidget(m_remarks);
    addChoiceRow(*layout);
    addButtonRow(*layout);
    nameTheParts(menus);
}

void ZLImportSheet::setSource(const ZLImportSource& source, const ZLImportPlan& plan, const QString& name)
{
    m_planning.reset();
    m_source = source;
    m_name = name;
    m_add->setChecked(true);
    {
        const QSignalBlocker quietShift(m_shift);
        const QSignalBlocker quietTemplates(m_templates);
        m_shift->setValue(0.0);
        m_templates->setChecked(false);
    }
    m_templates->setVisible(!source.textsWithoutTime.isEmpty());
    fillItems();
    showPlan(plan);
}

ZLImportPlan ZLImportSheet::takePlan()
{
    if (m_planning)
        m_planning->settle(QDeadlineTimer(QDeadlineTimer::Forever));
    ZLImportPlan plan = std::exchange(m_plan, {});
    m_model->setChapters({});
    return plan;
}

bool ZLImportSheet::replacesChapters() const
{
    return m_replace->isChecked();
}

void ZLImportSheet::takeKeyboard()
{
    m_rows->setFocus(Qt::ShortcutFocusReason);
}

void ZLImportSheet::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT wantsToClose();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        m_import->click();
    else
        QFrame::keyPressEvent(event);
}

QTreeView* ZLImportSheet::makeRows()
{
    auto* rows = ZLSheetParts::list(u"importRows"_s, tr("Chapters that will come"), m_model, this);
    const int timeWidth = rows->fontMetrics().horizontalAdvance(u"-000:00:00.000  "_s);
    rows->header()->resizeSection(ZLImportRowsModel::TimeColumn, timeWidth);
    rows->header()->resizeSection(ZLImportRowsModel::TitleColumn, 3 * timeWidth);
    rows->header()->setStretchLastSection(true);
    return rows;
}

void ZLImportSheet::addItemRow(QBoxLayout& layout)
{
    auto* row = new QHBoxLayout(m_itemRow);
    row->setContentsMargins({});
    auto* label = new QLabel(tr("Show:"), m_itemRow);
    label->setObjectName(u"importItemLabel"_s);
    label->setBuddy(m_items);
    m_items->setObjectName(u"importItem"_s);
    m_items->setAccessibleName(tr("Show"));
    m_items->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    row->addWidget(label);
    row->addWidget(m_items, 1);
    layout.addWidget(m_itemRow);
    connect(m_items, &QComboBox::currentIndexChanged, this, &ZLImportSheet::update);
}

void ZLImportSheet::addChoiceRow(QBoxLayout& layout)
{
    m_add->setObjectName(u"importAdd"_s);
    m_replace->setObjectName(u"importReplace"_s);
    m_shift->setObjectName(u"importShift"_s);
    m_shift->setRange(-longestShiftInSeconds, longestShiftInSeconds);
    m_shift->setDecimals(3);
    m_shift->setAccessibleName(tr("Shift in seconds"));
    m_shiftLabel->setBuddy(m_shift);
    m_templates->setObjectName(u"importTemplates"_s);
    auto* row = new QHBoxLayout;
    row->addWidget(m_add);
    row->addWidget(m_replace);
    row->addStretch(1);
    row->addWidget(m_shiftLabel);
    row->addWidget(m_shift);
    layout.addLayout(row);
    layout.addWidget(m_templates);
    connect(m_shift, &QDoubleSpinBox::valueChanged, this, &ZLImportSheet::update);
    connect(m_templates, &QCheckBox::toggled, this, &ZLImportSheet::update);
}

void ZLImportSheet::addButtonRow(QBoxLayout& layout)
{
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(m_cancel);
    row->addWidget(m_import);
    layout.addLayout(row);
    connect(m_cancel, &QPushButton::clicked, this, &ZLImportSheet::wantsToClose);
    connect(m_import, &QPushButton::clicked, this, &ZLImportSheet::importRequested);
}

void ZLImportSheet::nameTheParts(const QMenuBar& menus)
{
    ZLMnemonics mnemonics;
    mnemonics.leaveToMenus(menus);
    m_import->setText(mnemonics.withMnemonic(tr("Import")));
    m_add->setText(mnemonics.withMnemonic(tr("Add to the chapters")));
    m_replace->setText(mnemonics.withMnemonic(tr("Replace the chapters")));
    m_shiftLabel->setText(mnemonics.withMnemonic(tr("Shift (s):")));
    m_templates->setText(mnemonics.withMnemonic(tr("Lines without a time become templates")));
    m_cancel->setText(mnemonics.withMnemonic(tr("Cancel")));
}

void ZLImportSheet::fillItems()
{
    const QSignalBlocker quiet(m_items);
    m_items->clear();
    for (const ZLChapterList& list : std::as_const(m_source.found.lists))
        m_items->addItem(ZLShownText::asOneLine(ZLShownText::shortened(list.name)));
    m_itemRow->setVisible(m_source.found.lists.size() > 1);
}

ZLImportChoices ZLImportSheet::choices() const
{
    return { .item = std::max(0, m_items->currentIndex()),
        .shift = m_shift->value(),
        .makesTemplates = m_templates->isChecked() };
}

void ZLImportSheet::update()
{
    m_planning = std::make_unique<ZLDiskWork>();
    m_planning->start([this, source = m_source, chosen = choices()](const ZLDiskWork::Teller& tell) {
        tell([this, plan = ZLImportPlan::make(source, chosen)] { showPlan(plan); });
    });
}

void ZLImportSheet::showPlan(const ZLImportPlan& plan)
{
    m_model->setChapters(plan.chapters);
    ZLLateRelease::of(std::exchange(m_plan, plan).chapters);
    m_rows->setColumnHidden(ZLImportRowsModel::LinkColumn, !m_model->hasLinks());
    m_heading->setText(heading());
    m_import->setEnabled(!plan.chapters.isEmpty() || !plan.templates.isEmpty());
    updateRemarks(plan.remarks);
}

QString ZLImportSheet::heading() const
{
    const qsizetype chapters = m_plan.chapters.size();
    const QString count = chapters == 1 ? tr("1 chapter") : tr("%1 chapters").arg(chapters);
    return tr("%1 from %2, read as %3").arg(count, ZLShownText::asOneLine(m_name), m_source.found.formName);
}

void ZLImportSheet::updateRemarks(const QList<ZLListRemark>& remarks)
{
    m_remarks->clear();
    for (const ZLListRemark& remark : remarks)
        m_remarks->addItem(ZLImportPlan::remarkText(remark));
    m_remarks->setVisible(!remarks.isEmpty());
    const int lines = int(std::min<qsizetype>(remarks.size(), remarkLines));
    m_remarks->setFixedHeight(lines * m_remarks->sizeHintForRow(0) + 2 * m_remarks->frameWidth());
}

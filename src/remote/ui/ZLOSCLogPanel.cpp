#include "remote/ui/ZLOSCLogPanel.h"

#include "remote/ui/ZLOSCLogView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ZLOSCLogPanel::ZLOSCLogPanel(ZLOSCLog& log, QWidget* parent)
    : QGroupBox(tr("Messages"), parent)
    , m_log(log)
    , m_filter(std::make_unique<QSortFilterProxyModel>())
    , m_view(new ZLOSCLogView(this))
    , m_onlyProblems(new QCheckBox(tr("Only &problems"), this))
    , m_pauseButton(makeButton(u"pauseLog"_s, tr("Pa&use")))
{
    setObjectName(u"logPanel"_s);
    m_filter->setSourceModel(&log);
    m_filter->setFilterRole(ZLOSCLog::ProblemRole);
    m_view->setObjectName(u"log"_s);
    m_view->setAccessibleName(tr("Messages"));
    m_view->setModel(m_filter.get());
    m_onlyProblems->setObjectName(u"onlyProblems"_s);
    m_onlyProblems->setToolTip(tr("Show only messages that changed nothing or did not get through."));
    new QVBoxLayout(this);
    buildButtons();
    layout()->addWidget(m_view);
    connect(m_onlyProblems, &QCheckBox::toggled, this, [this](bool isOn) {
        m_filter->setFilterFixedString(isOn ? u"true"_s : QString());
        updatePlaceholder();
    });
    connect(m_pauseButton, &QPushButton::toggled, this, &ZLOSCLogPanel::setPaused);
    updatePlaceholder();
}

ZLOSCLogPanel::~ZLOSCLogPanel()
{
    m_log.setHeld(false);
    // It goes before the view.
    m_view->setModel(nullptr);
}

void ZLOSCLogPanel::buildButtons()
{
    m_pauseButton->setCheckable(true);
    m_pauseButton->setToolTip(tr("Keep the list as it is; what comes meanwhile appears when it goes on."));
    QPushButton* const copyButton = makeButton(u"copyLog"_s, tr("&Copy"));
    copyButton->setToolTip(tr("Copy the selected messages, or all when none is selected."));
    QPushButton* const clearButton = makeButton(u"clearLog"_s, tr("C&lear"));
    auto* const row = new QHBoxLayout;
    row->addWidget(m_onlyProblems);
    row->addStretch();
    for (QPushButton* button : { m_pauseButton, copyButton, clearButton })
        row->addWidget(button);
    qobject_cast<QVBoxLayout*>(layout())->addLayout(row);
    connect(copyButton, &QPushButton::clicked, m_view, &ZLOSCLogView::copy);
    connect(clearButton, &QPushButton::clicked, &m_log, &ZLOSCLog::clear);
}

QPushButton* ZLOSCLogPanel::makeButton(const QString& objectName, const QString& text)
{
    auto* const button = new QPushButton(text, this);
    button->setObjectName(objectName);
    return button;
}

void ZLOSCLogPanel::setPaused(bool paused)
{
    m_log.setHeld(paused);
    m_pauseButton->setText(paused ? tr("Contin&ue") : tr("Pa&use"));
}

void ZLOSCLogPanel::updatePlaceholder()
{
    m_view->setPlaceholder(m_onlyProblems->isChecked()
            ? tr("No message has failed so far.")
            : tr("Press a button on the control surface: its message and what became of it appear here.\n"
                 "Nothing appears? Then it does not arrive: compare address and port, and the network."));
}

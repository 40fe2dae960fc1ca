#include "delivery/ui/ZLDeliveryComparison.h"

#include "delivery/ui/ZLMediaChaptersModel.h"
#include "document/ui/ZLSheetParts.h"
#include "export/ui/ZLExportAdviceView.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>

using namespace Qt::StringLiterals;
using State = ZLDeliveryTarget::State;

namespace {

/// Lines of a list that can always be seen.
constexpr int leastLines = 3;

QTreeView* makeList(const QString& name, ZLMediaChaptersModel* model, QWidget* parent)
{
    // It is called what its caption says.
    QTreeView* list = ZLSheetParts::list(name, {}, model, parent);
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(ZLMediaChaptersModel::TitleColumn, QHeaderView::Stretch);
    // What to know about the file needs its room first.
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    list->setMinimumHeight((leastLines + 1) * (list->fontMetrics().height() + leastLines));
    list->resizeColumnToContents(ZLMediaChaptersModel::TimeColumn);
    list->setColumnHidden(ZLMediaChaptersModel::LinkColumn, true);
    return list;
}

/// A screen reader says it of the list, too.
void setCaption(QLabel& caption, const QString& text)
{
    caption.setText(text);
    caption.buddy()->setAccessibleName(text);
}

QString outcomeOf(const ZLDeliveryTarget& target)
{
    if (target.path.isEmpty())
        return ZLDeliveryComparison::tr("Choose the finished audio files, or drop them on this window.");
    return target.state == State::Written ? target.message : QString();
}

/// Why nothing is or can be written stands before what to know.
QStringList adviceFor(const ZLDeliveryTarget& target)
{
    QStringList lines;
    if (target.state == State::Unreadable || target.state == State::Failed)
        lines.append(target.message);
    if (!target.plan)
        return lines;
    if (target.plan->toCome.isEmpty())
        lines.append(ZLDeliveryComparison::tr("No enabled chapter lies in this file, so it will not be written."));
    return lines + target.plan->findings;
}

}

ZLDeliveryComparison::ZLDeliveryComparison(QWidget* parent)
    : QWidget(parent)
    , m_outcome(new QLabel(this))
    , m_advice(new ZLExportAdviceView(this))
{
    auto* sides = new QHBoxLayout;
    sides->addLayout(addSide(u"chaptersNow"_s, m_nowCaption, m_now), 1);
    sides->addLayout(addSide(u"chaptersToCome"_s, m_toComeCaption, m_toCome), 1);
    m_outcome->setObjectName(u"deliveryOutcome"_s);
    m_outcome->setTextFormat(Qt::PlainText);
    m_outcome->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(sides, 1);
    layout->addWidget(m_outcome);
    layout->addWidget(m_advice);
    showTarget({});
}

QVBoxLayout* ZLDeliveryComparison::addSide(const QString& name, QLabel*& caption, ZLMediaChaptersModel*& model)
{
    model = new ZLMediaChaptersModel(this);
    QTreeView* list = makeList(name, model, this);
    caption = new QLabel(this);
    caption->setBuddy(list);
    auto* side = new QVBoxLayout;
    side->addWidget(caption);
    side->addWidget(list, 1);
    connect(model, &QAbstractItemModel::modelReset, list, [list, model] {
        list->resizeColumnToContents(ZLMediaChaptersModel::TimeColumn);
        list->setColumnHidden(ZLMediaChaptersModel::LinkColumn, !model->hasLinks());
    });
    return side;
}

void ZLDeliveryComparison::showTarget(const ZLDeliveryTarget& target)
{
    const ZLMediaChapters now = target.plan ? target.plan->now.chapters : ZLMediaChapters();
    const ZLMediaChapters toCome = target.plan ? target.plan->toCome : ZLMediaChapters();
    m_now->setChapters(now);
    m_toCome->setChapters(toCome);
    setCaption(*m_nowCaption, tr("In the file now: %1").arg(now.size()));
    setCaption(*m_toComeCaption, tr("After writing: %1").arg(toCome.size()));
    showOutcome(outcomeOf(target));
    m_advice->setLines(adviceFor(target));
}

void ZLDeliveryComparison::showOutcome(const QString& outcome)
{
    if (m_outcome->text() == outcome && m_outcome->isVisibleTo(this) != outcome.isEmpty())
        return;
    m_outcome->setText(outcome);
    m_outcome->setVisible(!outcome.isEmpty());
    if (outcome.isEmpty())
        return;
    QAccessibleEvent alert(m_outcome, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

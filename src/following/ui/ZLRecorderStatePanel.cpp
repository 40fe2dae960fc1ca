#include "following/ui/ZLRecorderStatePanel.h"

#include "document/ZLChapterDocument.h"
#include "document/ui/ZLFormText.h"
#include "model/ZLTimeText.h"

#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int updateMilliseconds = 200;
constexpr double partsPerMillion = 1e6;

QString withSign(double value, int decimals)
{
    QString amount = QLocale().toString(std::abs(value), 'f', decimals);
    if (amount == QLocale().toString(0.0, 'f', decimals))
        return amount;
    // U+2212 is as wide as the plus.
    return (value < 0.0 ? u"\u2212"_s : u"+"_s) + amount;
}

QString distanceText(double seconds)
{
    if (std::abs(seconds) < 1.0)
        return ZLRecorderStatePanel::tr("%1 ms").arg(withSign(seconds * 1000.0, 0));
    return ZLRecorderStatePanel::tr("%1 s").arg(withSign(seconds, 2));
}

}

ZLRecorderStatePanel::ZLRecorderStatePanel(ZLFollowing& following, QWidget* parent)
    : QGroupBox(tr("State"), parent)
    , m_following(following)
{
    setObjectName(u"statePanel"_s);
    auto* const form = new QFormLayout(this);
    // The state may need two lines.
    form->setLabelAlignment(Qt::AlignLeading | Qt::AlignTop);
    m_state = ZLFormText::addRow(*form, u"recorderState"_s, tr("State:"));
    m_position = ZLFormText::addRow(*form, u"recorderPosition"_s, tr("Position:"));
    m_distance = ZLFormText::addRow(*form, u"recorderDistance"_s, tr("Distance:"));
    m_drift = ZLFormText::addRow(*form, u"recorderDrift"_s, tr("Drift:"));
    m_distance->setToolTip(tr("By which the recorder is ahead of Zelta's clock."));
    m_drift->setToolTip(tr("How much faster the recorder's clock goes than that of this computer."));
    m_takeRecorders = addTakeButton(
        *form, u"takeRecorders"_s, tr("Take the &Recorder's Time for All Chapters"), ZLReadingOf::Recorder);
    m_takeZeltas = addTakeButton(*form, u"takeZeltas"_s, tr("Take &Zelta's Time for All Chapters"), ZLReadingOf::Zelta);
    m_timer.setInterval(updateMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &ZLRecorderStatePanel::update);
    connect(&following, &ZLFollowing::stateDidChange, this, &ZLRecorderStatePanel::update);
    m_takeRecorders->setEnabled(false);
    m_takeZeltas->setEnabled(false);
    update();
}

QPushButton* ZLRecorderStatePanel::addTakeButton(
    QFormLayout& form, const QString& objectName, const QString& text, ZLReadingOf wanted)
{
    auto* const button = new QPushButton(text, this);
    button->setObjectName(objectName);
    button->setToolTip(tr("Of all chapters that were marked while a recorder was followed. It can be undone."));
    connect(button, &QPushButton::clicked, this, [this, wanted] {
        if (ZLChapterDocument* document = m_following.document())
            ZLChapterReadings(*document).takeForAll(wanted);
    });
    form.addRow(button);
    return button;
}

void ZLRecorderStatePanel::showEvent(QShowEvent* event)
{
    update();
    m_timer.start();
    QGroupBox::showEvent(event);
}

void ZLRecorderStatePanel::hideEvent(QHideEvent* event)
{
    m_timer.stop();
    QGroupBox::hideEvent(event);
}

void ZLRecorderStatePanel::update()
{
    const ZLRecorderFollower* const follower = m_following.follower();
    const QString unknown = u"–"_s;
    const auto position = follower ? follower->position() : std::nullopt;
    const auto distance = follower ? follower->distance() : std::nullopt;
    const auto drift = follower ? follower->drift() : std::nullopt;
    m_state->setText(m_following.stateText());
    m_position->setText(
        position ? ZLTimeText::hoursMinutesSeconds(ZLTimeText::truncated(std::max(0.0, *position))) : unknown);
    m_distance->setText(distance ? distanceText(*distance) : unknown);
    m_drift->setText(drift ? tr("%1 ppm").arg(withSign(*drift * partsPerMillion, 0)) : unknown);
    updateTakeButtons();
}

void ZLRecorderStatePanel::updateTakeButtons()
{
    ZLChapterDocument* const document = m_following.document();
    const qsizetype count = document ? document->chapterManager().count() : 0;
    const auto looked = std::pair(static_cast<const ZLChapterDocument*>(document), count);
    // Thousands of chapters are not looked through again and again.
    if (std::exchange(m_looked, looked) == looked)
        return;
    const bool canTake = document && ZLChapterReadings(*document).hasAny();
    m_takeRecorders->setEnabled(canTake);
    m_takeZeltas->setEnabled(canTake);
}

#include "settings/ui/MASPreferencesStage.h"

void MASPreferencesStage::showPane(QWidget& pane, QSize size)
{
    m_pane = &pane;
    m_isHeld = true;
    pane.setParent(this);
    pane.setGeometry({ {}, size });
    pane.show();
}

void MASPreferencesStage::takePane()
{
    if (!m_pane)
        return;
    m_pane->hide();
    m_pane->setParent(nullptr);
    m_pane.clear();
}

void MASPreferencesStage::letPaneFill()
{
    m_isHeld = false;
    if (m_pane)
        m_pane->setGeometry(rect());
}

void MASPreferencesStage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_pane && !m_isHeld)
        m_pane->setGeometry(rect());
}

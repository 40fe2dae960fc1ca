#pragma once

#include "following/ZLFollowing.h"

#include <QGroupBox>
#include <QTimer>

#include <utility>

class QFormLayout;
class QLabel;
class QPushButton;

/// How it stands with the recorder that is followed: state, position, distance to Zelta's clock, and drift.
class ZLRecorderStatePanel : public QGroupBox {
    Q_OBJECT

public:
    /// `following` has to outlive the panel.
    explicit ZLRecorderStatePanel(ZLFollowing& following, QWidget* parent = nullptr);

protected:
    /// Numbers are brought up to date only while somebody can see them.
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QPushButton* addTakeButton(QFormLayout& form, const QString& objectName, const QString& text, ZLReadingOf wanted);
    void update();
    void updateTakeButtons();

    ZLFollowing& m_following;
    QLabel* m_state;
    QLabel* m_position;
    QLabel* m_distance;
    QLabel* m_drift;
    QPushButton* m_takeRecorders;
    QPushButton* m_takeZeltas;
    /// Whose chapters were looked at for both readings, and how many.
    std::pair<const ZLChapterDocument*, qsizetype> m_looked { nullptr, 0 };
    QTimer m_timer;
};

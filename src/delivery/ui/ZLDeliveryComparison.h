#pragma once

#include "delivery/ZLDeliveryDraft.h"

#include <QWidget>

class QLabel;
class QTreeView;
class QVBoxLayout;
class ZLExportAdviceView;
class ZLMediaChaptersModel;

/// One audio file before and after: the chapters that are in it now beside those that will be, what became of it, and
/// what to know about it.
class ZLDeliveryComparison : public QWidget {
    Q_OBJECT

public:
    explicit ZLDeliveryComparison(QWidget* parent = nullptr);

    void showTarget(const ZLDeliveryTarget& target);

private:
    QVBoxLayout* addSide(const QString& name, QLabel*& caption, ZLMediaChaptersModel*& model);
    void showOutcome(const QString& outcome);

    QLabel* m_nowCaption = nullptr;
    QLabel* m_toComeCaption = nullptr;
    ZLMediaChaptersModel* m_now = nullptr;
    ZLMediaChaptersModel* m_toCome = nullptr;
    QLabel* m_outcome;
    ZLExportAdviceView* m_advice;
};

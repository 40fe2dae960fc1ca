#pragma once

#include "remote/ZLOSCLog.h"

#include <QGroupBox>

#include <memory>

class QCheckBox;
class QPushButton;
class QSortFilterProxyModel;
class ZLOSCLogView;

/// The messages in and out as they come, and what became of each.
class ZLOSCLogPanel : public QGroupBox {
    Q_OBJECT

public:
    /// `log` has to outlive the panel.
    explicit ZLOSCLogPanel(ZLOSCLog& log, QWidget* parent = nullptr);
    ~ZLOSCLogPanel() override;

private:
    void buildButtons();
    QPushButton* makeButton(const QString& objectName, const QString& text);
    void setPaused(bool paused);
    void updatePlaceholder();

    ZLOSCLog& m_log;
    std::unique_ptr<QSortFilterProxyModel> m_filter;
    ZLOSCLogView* m_view;
    QCheckBox* m_onlyProblems;
    QPushButton* m_pauseButton;
};

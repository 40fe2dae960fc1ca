#pragma once

#include <QPersistentModelIndex>
#include <QTableView>

/// Shows the log of messages. It keeps to its end until it is scrolled up; then it keeps to what is being read,
/// while older rows go.
class ZLOSCLogView : public QTableView {
    Q_OBJECT

public:
    explicit ZLOSCLogView(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;
    /// Stands in the empty view.
    void setPlaceholder(const QString& text);
    /// The selected rows, else all: a line each, the columns separated by tabs.
    void copy() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void updateSizes();
    void notePosition();
    void restorePosition();

    QString m_placeholder;
    bool m_isPositionNoted = false;
    bool m_followsEnd = true;
    QPersistentModelIndex m_firstVisible;
};

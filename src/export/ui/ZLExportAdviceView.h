#pragma once

#include <QFrame>
#include <QStringList>

class QLabel;

/// What the destination of an export will not like, in the dialog that asks for the file. It shows and asks nothing.
/// Hidden while there is nothing to tell.
class ZLExportAdviceView : public QFrame {
    Q_OBJECT

public:
    explicit ZLExportAdviceView(QWidget* parent = nullptr);

    /// One sentence each.
    void setLines(const QStringList& lines);
    [[nodiscard]] const QStringList& lines() const { return m_lines; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void updateIcon();

    QLabel* m_icon;
    QLabel* m_text;
    QStringList m_lines;
};

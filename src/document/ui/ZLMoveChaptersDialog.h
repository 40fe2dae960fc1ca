#pragma once

#include <QDialog>

class QLineEdit;

/// Asks for the offset by which all chapters are moved. Shown with open(), so that a running recording goes on.
class ZLMoveChaptersDialog : public QDialog {
    Q_OBJECT

public:
    explicit ZLMoveChaptersDialog(QWidget* parent = nullptr);

    /// Milliseconds, negative for earlier; 0 for a text that is no number.
    [[nodiscard]] float offset() const;

private:
    QLineEdit* m_field;
};

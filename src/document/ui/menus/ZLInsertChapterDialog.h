#pragma once

#include <QDialog>

#include <optional>

class QLineEdit;

/// Asks for the time of a chapter that is set later. Shown with open(), so that a running recording goes on.
class ZLInsertChapterDialog : public QDialog {
    Q_OBJECT

public:
    /// `proposedTime` in seconds on the recording clock stands in the field, selected.
    explicit ZLInsertChapterDialog(double proposedTime, QWidget* parent = nullptr);

    /// Seconds; nothing while the text is no time, when the dialog cannot be accepted either. An unchanged text stands
    /// for the proposed time with all its digits.
    [[nodiscard]] std::optional<double> time() const;

private:
    double m_proposedTime;
    QString m_proposedText;
    QLineEdit* m_field;
};

#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

/// The line pattern of a format in the dialog of its export, with a preview of the first lines.
class ZLLinePatternView : public QWidget {
    Q_OBJECT

public:
    explicit ZLLinePatternView(const QString& pattern, QWidget* parent = nullptr);

    [[nodiscard]] QString pattern() const;
    /// Of the text as it would be written only the first lines are shown.
    void setPreview(const QString& text);

Q_SIGNALS:
    void patternDidChange();

private:
    QLineEdit* m_pattern;
    QLabel* m_preview;
};

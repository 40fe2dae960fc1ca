#pragma once

#include <QFileDialog>

/// Asks for the name of a file to write. A typed name gets the extension of its kind before the dialog looks whether
/// there is such a file already, so that nothing else is replaced than what was asked about.
class ZLSaveFileDialog : public QFileDialog {
    Q_OBJECT

public:
    /// `extension` without its dot.
    ZLSaveFileDialog(QWidget* parent, const QString& title, const QString& extension);

protected:
    void accept() override;

private:
    QString m_extension;
};

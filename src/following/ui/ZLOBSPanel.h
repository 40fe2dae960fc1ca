#pragma once

#include <QGroupBox>

class QLabel;
class QLineEdit;
class QSpinBox;
class ZLOBSPassword;

/// Where OBS Studio is reached, and with which password.
class ZLOBSPanel : public QGroupBox {
    Q_OBJECT

public:
    /// `password` has to outlive the panel.
    explicit ZLOBSPanel(ZLOBSPassword& password, QWidget* parent = nullptr);

Q_SIGNALS:
    void settingsDidChange();

private:
    void takeHost();
    void takePort(int port);
    void takePassword();
    void showProblem();

    ZLOBSPassword& m_password;
    QLineEdit* m_host;
    QSpinBox* m_port;
    QLineEdit* m_passwordField;
    QLabel* m_problem;
};

#include "following/ui/ZLOBSPanel.h"

#include "following/ZLFollowingSettings.h"
#include "following/ZLOBSPassword.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

using namespace Qt::StringLiterals;

ZLOBSPanel::ZLOBSPanel(ZLOBSPassword& password, QWidget* parent)
    : QGroupBox(u"OBS Studio"_s, parent)
    , m_password(password)
    , m_host(new QLineEdit(ZLFollowingSettings::obsHost(), this))
    , m_port(new QSpinBox(this))
    , m_passwordField(new QLineEdit(password.text(), this))
    , m_problem(new QLabel(this))
{
    setObjectName(u"obsPanel"_s);
    m_host->setObjectName(u"obsHost"_s);
    m_port->setObjectName(u"obsPort"_s);
    m_port->setRange(1, 65535);
    m_port->setGroupSeparatorShown(false);
    m_port->setKeyboardTracking(false);
    m_port->setValue(ZLFollowingSettings::obsPort());
    m_passwordField->setObjectName(u"obsPassword"_s);
    m_passwordField->setEchoMode(QLineEdit::Password);
    m_problem->setObjectName(u"obsProblem"_s);
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    auto* const form = new QFormLayout(this);
    form->addRow(tr("&Address:"), m_host);
    form->addRow(tr("&Port:"), m_port);
    form->addRow(tr("Pass&word:"), m_passwordField);
    form->addRow(m_problem);
    auto* const note = new QLabel(tr("In OBS Studio: Tools ▸ WebSocket Server Settings."), this);
    note->setWordWrap(true);
    form->addRow(note);
    connect(m_host, &QLineEdit::editingFinished, this, &ZLOBSPanel::takeHost);
    connect(m_port, &QSpinBox::valueChanged, this, &ZLOBSPanel::takePort);
    connect(m_passwordField, &QLineEdit::editingFinished, this, &ZLOBSPanel::takePassword);
    connect(&password, &ZLOBSPassword::didLoad, this, [this] { m_passwordField->setText(m_password.text()); });
    connect(&password, &ZLOBSPassword::problemDidChange, this, &ZLOBSPanel::showProblem);
    showProblem();
    password.load();
}

void ZLOBSPanel::takeHost()
{
    const QString host = m_host->text().trimmed();
    if (host == ZLFollowingSettings::obsHost())
        return;
    ZLFollowingSettings::setOBSHost(host);
    m_host->setText(ZLFollowingSettings::obsHost());
    Q_EMIT settingsDidChange();
}

void ZLOBSPanel::takePort(int port)
{
    ZLFollowingSettings::setOBSPort(quint16(port));
    Q_EMIT settingsDidChange();
}

void ZLOBSPanel::takePassword()
{
    if (m_passwordField->text() == m_password.text())
        return;
    m_password.setText(m_passwordField->text());
    Q_EMIT settingsDidChange();
}

void ZLOBSPanel::showProblem()
{
    m_problem->setText(m_password.problem());
    m_problem->setVisible(!m_password.problem().isEmpty());
}

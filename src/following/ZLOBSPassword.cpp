#include "following/ZLOBSPassword.h"

#include "platform/ZLShownText.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString keyringName = QStringLiteral("OBS Studio websocket");

}

ZLOBSPassword::ZLOBSPassword(std::unique_ptr<ZLKeyring> keyring)
    : m_keyring(std::move(keyring))
    , m_text(qEnvironmentVariable("ZELTA_OBS_PASSWORD"))
{
}

void ZLOBSPassword::load()
{
    // A password that was given for this run, or typed meanwhile, is the right one.
    if (std::exchange(m_isAskedFor, true) || !m_text.isEmpty())
        return;
    m_keyring->read(keyringName, [this](const QString& secret) {
        if (!m_text.isEmpty() || secret.isEmpty())
            return;
        m_text = secret;
        Q_EMIT didLoad();
    });
}

void ZLOBSPassword::setText(const QString& text)
{
    m_text = text;
    m_keyring->write(keyringName, text, [this](const ZLStatus& status) {
        m_problem = status ? QString()
                           : tr("The password is kept until Zelta ends, since no keyring takes it: %1")
                                 .arg(ZLShownText::withFullStop(status.error().message));
        Q_EMIT problemDidChange();
    });
}

#include "following/ZLOBSPassword.h"

#include <QHash>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// What is stored outlives the keyring object, as in a desktop.
struct Store {
    QHash<QString, QString> secrets;
    bool isThere = true;
};

class FakeKeyring final : public ZLKeyring {
public:
    explicit FakeKeyring(Store& store)
        : m_store(store)
    {
    }

    void read(const QString& name, std::function<void(const QString&)> done) override
    {
        done(m_store.isThere ? m_store.secrets.value(name) : QString());
    }

    void write(const QString& name, const QString& secret, std::function<void(const ZLStatus&)> done) override
    {
        if (!m_store.isThere)
            return done(ZLError { u"No keyring"_s });
        m_store.secrets.insert(name, secret);
        done(ZLDone {});
    }

private:
    Store& m_store;
};

class ZLOBSPasswordTest : public testing::Test {
protected:
    ~ZLOBSPasswordTest() override { qunsetenv("ZELTA_OBS_PASSWORD"); }

    [[nodiscard]] std::unique_ptr<ZLKeyring> keyring() { return std::make_unique<FakeKeyring>(m_store); }

    Store m_store;
};

TEST_F(ZLOBSPasswordTest, TheKeyringKeepsIt)
{
    ZLOBSPassword(keyring()).setText(u"secret"_s);
    ZLOBSPassword password(keyring());
    const QSignalSpy loaded(&password, &ZLOBSPassword::didLoad);
    EXPECT_EQ(password.text(), QString());
    password.load();
    password.load();
    EXPECT_EQ(password.text(), u"secret");
    EXPECT_EQ(loaded.size(), 1);
}

TEST_F(ZLOBSPasswordTest, WithoutAKeyringItIsKeptForTheRun)
{
    m_store.isThere = false;
    ZLOBSPassword password(keyring());
    const QSignalSpy problem(&password, &ZLOBSPassword::problemDidChange);
    password.setText(u"secret"_s);
    EXPECT_EQ(password.text(), u"secret");
    EXPECT_TRUE(password.problem().endsWith(u"No keyring."));
    EXPECT_FALSE(password.problem().contains(u"secret"));
    EXPECT_EQ(problem.size(), 1);
}

TEST_F(ZLOBSPasswordTest, WhatWasTypedGoesBeforeWhatTheKeyringHas)
{
    ZLOBSPassword(keyring()).setText(u"old"_s);
    ZLOBSPassword password(keyring());
    password.setText(u"new"_s);
    password.load();
    EXPECT_EQ(password.text(), u"new");
}

TEST_F(ZLOBSPasswordTest, TheVariableGoesFirst)
{
    ZLOBSPassword(keyring()).setText(u"stored"_s);
    qputenv("ZELTA_OBS_PASSWORD", "given");
    ZLOBSPassword password(keyring());
    password.load();
    EXPECT_EQ(password.text(), u"given");
}

}

#include "platform/window/ZLDesktopAnimations.h"

#include "platform/ZLPrivateBus.h"

#include <QDBusMetaType>
#include <QDBusVariant>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using ZLSettingGroups = QMap<QString, QVariantMap>;

/// A portal with some settings.
class ZLSettingsPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    ZLSettingGroups groups;
    int questions = 0;

public Q_SLOTS:
    QMap<QString, QVariantMap> ReadAll(const QStringList& names)
    {
        ++questions;
        ZLSettingGroups answer;
        for (const QString& name : names)
            answer.insert(name, groups.value(name));
        return answer;
    }

Q_SIGNALS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);
};

class ZLDesktopAnimationsTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(m_bus.error(), QString());
        qDBusRegisterMetaType<ZLSettingGroups>();
    }

    void startPortal(const QString& group, const QString& key, const QVariant& value)
    {
        m_portal.groups = { { group, { { key, value } } } };
        QDBusConnection connection = m_bus.connection();
        ASSERT_TRUE(connection.registerObject(u"/org/freedesktop/portal/desktop"_s, &m_portal,
            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        ASSERT_TRUE(connection.registerService(u"org.freedesktop.portal.Desktop"_s));
    }
    void ask() { m_animations.emplace(m_bus.connection()); }
    [[nodiscard]] bool refuses()
    {
        return QTest::qWaitFor([this] { return !m_animations->areWanted(); });
    }

    ZLPrivateBus m_bus;
    ZLSettingsPortal m_portal;
    std::optional<ZLDesktopAnimations> m_animations;
};

TEST_F(ZLDesktopAnimationsTest, EachDesktopHasItsWordForNo)
{
    startPortal(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, false);
    ask();
    EXPECT_TRUE(refuses());
    m_portal.groups = { { u"org.kde.kdeglobals.KDE"_s, { { u"AnimationDurationFactor"_s, u"0"_s } } } };
    ask();
    EXPECT_TRUE(refuses());
    m_portal.groups = { { u"org.freedesktop.appearance"_s, { { u"reduced-motion"_s, quint32(1) } } } };
    ask();
    EXPECT_TRUE(refuses());
}

TEST_F(ZLDesktopAnimationsTest, ADesktopThatSaysYesOrNothingIsNotInTheWay)
{
    startPortal(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, true);
    for (int i = 0; i < 2; ++i) {
        ask();
        const QSignalSpy changes(&*m_animations, &ZLDesktopAnimations::didChange);
        ASSERT_TRUE(QTest::qWaitFor([&] { return m_portal.questions == i + 1; }));
        // It comes after the answer, so the answer has changed nothing.
        Q_EMIT m_portal.SettingChanged(
            u"org.gnome.desktop.interface"_s, u"enable-animations"_s, QDBusVariant(QVariant(false)));
        EXPECT_TRUE(refuses());
        EXPECT_EQ(changes.size(), 1);
        m_portal.groups.clear();
    }
}

TEST_F(ZLDesktopAnimationsTest, AChangeOfTheSettingIsFollowed)
{
    startPortal(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, false);
    ask();
    EXPECT_TRUE(refuses());
    const QSignalSpy changes(&*m_animations, &ZLDesktopAnimations::didChange);
    Q_EMIT m_portal.SettingChanged(
        u"org.gnome.desktop.interface"_s, u"enable-animations"_s, QDBusVariant(QVariant(true)));
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_animations->areWanted(); }));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(ZLDesktopAnimationsTest, WithoutAPortalOrABusNobodyHasSaidNo)
{
    ask();
    EXPECT_TRUE(m_animations->areWanted());
    m_animations.emplace(QDBusConnection(u"no such connection"_s));
    QTest::qWait(0);
    EXPECT_TRUE(m_animations->areWanted());
}

#include "ZLDesktopAnimationsTest.moc"

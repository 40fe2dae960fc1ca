#include "remote/ui/ZLOSCAcceptPanel.h"

#include "remote/ui/ZLConnectionsFixture.h"

#include <QListWidget>
#include <QRadioButton>

using namespace Qt::StringLiterals;

class ZLOSCAcceptPanelTest : public ZLConnectionsFixture {
protected:
    void SetUp() override { m_panel.show(); }

    void chooseAddresses() { child<QRadioButton>(m_panel, "acceptAddresses").click(); }
    [[nodiscard]] QStringList shownAddresses() const
    {
        return column(*child<QListWidget>(m_panel, "acceptedAddresses").model(), 0);
    }

    ZLOSCAcceptPanel m_panel;
};

TEST_F(ZLOSCAcceptPanelTest, TheConnectedNetworksAreChosenAtFirst)
{
    EXPECT_TRUE(child<QRadioButton>(m_panel, "acceptConnected").isChecked());
    EXPECT_FALSE(isShown(m_panel, "acceptedAddresses"));
}

TEST_F(ZLOSCAcceptPanelTest, AChoiceIsStoredAndFollowed)
{
    child<QRadioButton>(m_panel, "acceptThisComputer").click();
    EXPECT_EQ(ZLSettingsManager::oscAccept(), ZLOSCAccept::ThisComputerOnly);
    ZLSettingsManager::setOSCAccept(ZLOSCAccept::DirectlyConnectedNetworks);
    EXPECT_TRUE(child<QRadioButton>(m_panel, "acceptConnected").isChecked());
}

TEST_F(ZLOSCAcceptPanelTest, AnEmptyListSaysThatNobodyMaySpeak)
{
    chooseAddresses();
    EXPECT_EQ(ZLSettingsManager::oscAccept(), ZLOSCAccept::OnlyTheseAddresses);
    EXPECT_TRUE(isShown(m_panel, "nobodyNote"));
    type(m_panel, "acceptedAddressField", u"192.0.2.7"_s);
    EXPECT_FALSE(isShown(m_panel, "nobodyNote"));
}

TEST_F(ZLOSCAcceptPanelTest, AddressesAndNetworksAreStored)
{
    chooseAddresses();
    type(m_panel, "acceptedAddressField", u" 192.0.2.7 "_s);
    child<QLineEdit>(m_panel, "acceptedAddressField").setText(u"2001:db8::/32"_s);
    click(m_panel, "acceptedAddressAdd");
    EXPECT_EQ(ZLSettingsManager::oscAcceptedAddresses(), (QStringList { u"192.0.2.7"_s, u"2001:db8::/32"_s }));
    EXPECT_EQ(shownAddresses(), (QStringList { u"192.0.2.7"_s, u"2001:db8::/32"_s }));
    EXPECT_EQ(child<QLineEdit>(m_panel, "acceptedAddressField").text(), QString());
}

TEST_F(ZLOSCAcceptPanelTest, BadInputIsSaidBesideTheFieldAndNothingIsStored)
{
    chooseAddresses();
    for (const QString& bad : { u"tablet"_s, u"192.0.2.300"_s, u"192.0.2.0/40"_s, u"192.0.2.7:9000"_s }) {
        type(m_panel, "acceptedAddressField", bad);
        EXPECT_TRUE(text(m_panel, "acceptedAddressProblem").contains(bad)) << qPrintable(bad);
        EXPECT_TRUE(isShown(m_panel, "acceptedAddressProblem"));
        EXPECT_EQ(child<QLineEdit>(m_panel, "acceptedAddressField").text(), bad);
        EXPECT_EQ(child<QLineEdit>(m_panel, "acceptedAddressField").accessibleDescription(),
            text(m_panel, "acceptedAddressProblem"));
    }
    EXPECT_TRUE(ZLSettingsManager::oscAcceptedAddresses().isEmpty());
    QTest::keyClick(&child<QLineEdit>(m_panel, "acceptedAddressField"), Qt::Key_Backspace);
    EXPECT_FALSE(isShown(m_panel, "acceptedAddressProblem"));
}

TEST_F(ZLOSCAcceptPanelTest, TheSameAddressIsNotStoredTwice)
{
    chooseAddresses();
    type(m_panel, "acceptedAddressField", u"2001:db8::1"_s);
    type(m_panel, "acceptedAddressField", u"2001:DB8:0::1"_s);
    EXPECT_EQ(ZLSettingsManager::oscAcceptedAddresses().size(), 1);
    EXPECT_TRUE(text(m_panel, "acceptedAddressProblem").contains(u"already"_s));
}

TEST_F(ZLOSCAcceptPanelTest, SelectedAddressesAreRemoved)
{
    ZLSettingsManager::setOSCAcceptedAddresses({ u"192.0.2.7"_s, u"192.0.2.8"_s, u"192.0.2.9"_s });
    chooseAddresses();
    EXPECT_FALSE(child<QPushButton>(m_panel, "acceptedAddressRemove").isEnabled());
    auto& list = child<QListWidget>(m_panel, "acceptedAddresses");
    list.item(0)->setSelected(true);
    list.item(2)->setSelected(true);
    click(m_panel, "acceptedAddressRemove");
    EXPECT_EQ(ZLSettingsManager::oscAcceptedAddresses(), QStringList(u"192.0.2.8"_s));
    EXPECT_FALSE(child<QPushButton>(m_panel, "acceptedAddressRemove").isEnabled());
}

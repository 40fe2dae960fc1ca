#include "app/ui/listening/ZLListeningDisplay.h"
#include "app/ZLApplicationListening.h"
#include "app/ui/ZLDesktopFixture.h"
#include "app/ui/listening/ZLListeningLamp.h"
#include "settings/ZLListeningSettings.h"
#include "support/ZLFakeSoundInput.h"

#include <QMenu>

#include <cmath>

using namespace Qt::StringLiterals;

class ZLListeningDisplayTest : public ZLDesktopFixture {
protected:
    void SetUp() override
    {
        ZLDesktopFixture::SetUp();
        begin();
        m_document = newDocument();
        m_display->addWindow(windowOf(m_document));
    }
    void TearDown() override
    {
        m_display.reset();
        m_listening.reset();
        ZLDesktopFixture::TearDown();
    }

    void begin()
    {
        auto input = std::make_unique<ZLFakeSoundInput>();
        m_input = input.get();
        m_listening = std::make_unique<ZLApplicationListening>(m_controller, std::move(input));
        m_display = std::make_unique<ZLListeningDisplay>(m_listening->shows());
    }
    [[nodiscard]] QToolButton* part()
    {
        return windowOf(m_document).statusLine().findChild<QToolButton*>(u"listening"_s);
    }
    [[nodiscard]] QMenu* menu() { return windowOf(m_document).findChild<QMenu*>(u"listeningMenu"_s); }
    void openMenu() { Q_EMIT menu()->aboutToShow(); }
    void agree()
    {
        trigger(m_document, u"listenAlong"_s);
        pressInBar(m_document, u"Listen Along"_s);
    }
    /// A tenth of a second of sound or silence, for some time.
    void hear(float height, double seconds)
    {
        for (int count = 0; count < std::lround(seconds * 10.0); ++count) {
            m_clock->advance(0.1);
            m_input->hear({ m_clock->now() - 0.1, std::vector<float>(ZLSoundInput::SamplesPerSecond / 10, height) });
        }
    }
    [[nodiscard]] QString passingMessage() { return windowOf(m_document).statusLine().passingMessage(); }

    ZLFakeSoundInput* m_input = nullptr;
    std::unique_ptr<ZLApplicationListening> m_listening;
    std::unique_ptr<ZLListeningDisplay> m_display;
    ZLChapterDocument* m_document = nullptr;
};

TEST_F(ZLListeningDisplayTest, IsOffAtFirstAndShowsNothing)
{
    EXPECT_TRUE(part()->isHidden());
    openMenu();
    EXPECT_FALSE(action(m_document, u"listenAlong"_s)->isChecked());
    EXPECT_EQ(m_input->state(), ZLSoundInput::State::Off);
    EXPECT_FALSE(action(m_document, u"removeListeningData"_s)->isEnabled());
}

TEST_F(ZLListeningDisplayTest, AsksTheFirstTimeInPlainWordsAndNotAgain)
{
    trigger(m_document, u"listenAlong"_s);
    EXPECT_TRUE(barText(m_document).contains(u"No sound is kept: only 32 bits every 20 ms"_s));
    EXPECT_EQ(m_input->state(), ZLSoundInput::State::Off);
    pressInBar(m_document, u"Cancel"_s);
    EXPECT_EQ(m_input->state(), ZLSoundInput::State::Off);
    EXPECT_FALSE(ZLListeningSettings::isOn());
    agree();
    EXPECT_EQ(m_input->state(), ZLSoundInput::State::Opening);
    EXPECT_TRUE(ZLListeningSettings::isOn());
    openMenu();
    trigger(m_document, u"listenAlong"_s);
    EXPECT_EQ(m_input->state(), ZLSoundInput::State::Off);
    EXPECT_FALSE(ZLListeningSettings::isOn());
    trigger(m_document, u"listenAlong"_s);
    EXPECT_EQ(barText(m_document), QString());
    EXPECT_EQ(m_input->state(), ZLSoundInput::State::Opening);
}

TEST_F(ZLListeningDisplayTest, TheInputIsChosenInTheMenu)
{
    openMenu();
    EXPECT_TRUE(action(m_document, u"listenTo:"_s)->isChecked());
    trigger(m_document, u"listenTo:card.monitor"_s);
    EXPECT_EQ(m_input->state(), ZLSoundInput::State::Off);
    agree();
    EXPECT_EQ(m_input->wantedId(), u"card.monitor"_s);
    openMenu();
    trigger(m_document, u"listenTo:microphone"_s);
    EXPECT_EQ(m_input->wantedId(), u"microphone"_s);
    openMenu();
    EXPECT_TRUE(action(m_document, u"listenTo:microphone"_s)->isChecked());
    // One that was chosen and is not there stays in the list.
    m_input->setDevices({});
    EXPECT_TRUE(action(m_document, u"listenTo:microphone"_s)->isChecked());
    EXPECT_TRUE(action(m_document, u"listenTo:microphone"_s)->text().contains(u"missing"_s));
}

TEST_F(ZLListeningDisplayTest, ALampAndALevelSayThatItHears)
{
    agree();
    EXPECT_FALSE(part()->isHidden());
    EXPECT_EQ(part()->text(), u"Listening"_s);
    hear(0.0F, 0.1);
    const QImage quiet = part()->icon().pixmap(ZLListeningLamp::Size).toImage();
    hear(0.3F, 0.1);
    const QImage loud = part()->icon().pixmap(ZLListeningLamp::Size).toImage();
    EXPECT_NE(quiet, loud);
    EXPECT_EQ(ZLListeningLamp::litBars(0.0), 0);
    EXPECT_EQ(ZLListeningLamp::litBars(0.001), 1);
    EXPECT_EQ(ZLListeningLamp::litBars(1.0), ZLListeningLamp::BarCount);
}

TEST_F(ZLListeningDisplayTest, TenSilentSecondsOfARecordingAreToldInTheLineAndInNoBar)
{
    agree();
    hear(0.0F, 12.0);
    EXPECT_EQ(part()->text(), u"Silence"_s);
    EXPECT_EQ(passingMessage(), QString());
    m_document->recordButtonPressed();
    EXPECT_EQ(part()->text(), u"Listening"_s);
    hear(0.0F, 9.0);
    EXPECT_EQ(passingMessage(), QString());
    hear(0.0F, 2.0);
    EXPECT_EQ(part()->text(), u"Silence"_s);
    EXPECT_TRUE(passingMessage().contains(u"for ten seconds"_s)) << qPrintable(passingMessage());
    EXPECT_EQ(barText(m_document), QString());
    hear(0.3F, 0.1);
    EXPECT_EQ(part()->text(), u"Listening"_s);
}

TEST_F(ZLListeningDisplayTest, AnInputThatIsPulledOutIsToldInTheLineAndInNoBar)
{
    agree();
    hear(0.3F, 0.1);
    m_input->setState(ZLSoundInput::State::Missing);
    EXPECT_EQ(part()->text(), u"No input"_s);
    EXPECT_TRUE(passingMessage().contains(u"is missing"_s));
    EXPECT_TRUE(part()->toolTip().contains(u"is missing"_s));
    EXPECT_EQ(barText(m_document), QString());
    hear(0.3F, 0.1);
    EXPECT_EQ(part()->text(), u"Listening"_s);
}

TEST_F(ZLListeningDisplayTest, WhatWasHeardIsRemovedFromTheMenuAndBroughtBackByUndo)
{
    agree();
    m_document->recordButtonPressed();
    hear(0.3F, 3.0);
    m_document->recordButtonPressed();
    ASSERT_TRUE(m_document->extras().value(ZLListeningData::Key).isValid());
    EXPECT_TRUE(action(m_document, u"removeListeningData"_s)->isEnabled());
    trigger(m_document, u"removeListeningData"_s);
    EXPECT_FALSE(m_document->extras().value(ZLListeningData::Key).isValid());
    EXPECT_FALSE(action(m_document, u"removeListeningData"_s)->isEnabled());
    m_document->undoManager().undo();
    EXPECT_TRUE(m_document->extras().value(ZLListeningData::Key).isValid());
}

TEST_F(ZLListeningDisplayTest, WhatWasSwitchedOnIsOnAtTheNextStart)
{
    openMenu();
    trigger(m_document, u"listenTo:microphone"_s);
    agree();
    m_display.reset();
    m_listening.reset();
    begin();
    EXPECT_EQ(m_input->wantedId(), u"microphone"_s);
    EXPECT_EQ(m_input->state(), ZLSoundInput::State::Opening);
}

TEST_F(ZLListeningDisplayTest, ADocumentThatClosesIsHeardNoMore)
{
    agree();
    hear(0.3F, 0.1);
    ASSERT_TRUE(m_controller.closeDocument(m_document, ZLClosing::Discard));
    hear(0.3F, 0.1);
    EXPECT_EQ(m_listening->shows().of(*m_document), nullptr);
}

#include "delivery/fit/ui/ZLFitSheet.h"

#include "app/ui/ZLDesktopFixture.h"
#include "delivery/ZLAudioFileMemory.h"
#include "delivery/fit/ZLKeptFits.h"
#include "delivery/ui/ZLDeliverySheet.h"
#include "document/ui/table/ZLChapterTableView.h"
#include "platform/media/file/ZLMediaFile.h"

#include "platform/media/decoding/ZLSoundDecoder.h"
#include "resources/sounds/ZLSoundResource.h"

#include "../../../delivery/ZLWaveFile.h"
#include "../../../delivery/fit/ZLShowSounds.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QTreeView>

using namespace Qt::StringLiterals;

class ZLFitDisplayTest : public ZLDesktopFixture {
protected:
    /// A document of a show from which 40 to 60 s were cut out, with that fit kept.
    ZLChapterDocument* fittedDocument(const QString& finished)
    {
        ZLChapterDocument* document = newDocument();
        document->addChapter(ZLTestChapters::chapterAt(10.0, u"Kept"_s));
        document->addChapter(ZLTestChapters::chapterAt(70.0, u"Later"_s));
        ZLKeptFits::keep(document->extras(),
            { .identifier = u"id"_s,
                .fileName = finished,
                .alignment = { { { 0.0, 0.0, 40.0, 1.0, 0.1 }, { 60.0, 40.0, 40.0, 1.0, 0.1 } }, {}, 100.0, 80.0 } });
        return document;
    }
    ZLFitSheet* sheetOf(ZLChapterDocument* document)
    {
        return windowOf(document).findChild<ZLFitSheet*>(u"fitSheet"_s);
    }
    bool isSheetShown(ZLChapterDocument* document) { return sheetOf(document) && sheetOf(document)->isVisible(); }
    QPushButton* button(ZLChapterDocument* document, const QString& name)
    {
        return sheetOf(document)->findChild<QPushButton*>(name);
    }
    static QList<double> times(ZLChapterDocument* document)
    {
        return ZLTestChapters::times(document->chapterManager().allChapters());
    }
};

TEST_F(ZLFitDisplayTest, OpensBetweenTheClockAndTheTableAndGivesTheKeyboardBack)
{
    ZLChapterDocument* document = newDocument();
    makeCurrent(document);
    EXPECT_EQ(action(document, u"fitToFinishedFile"_s)->shortcut(), QKeySequence(u"Ctrl+Shift+F"_s));
    trigger(document, u"fitToFinishedFile"_s);
    ASSERT_TRUE(isSheetShown(document));
    EXPECT_FALSE(sheetOf(document)->isWindow()) << "so that it can cover no clock";
    EXPECT_TRUE(sheetOf(document)->isAncestorOf(QApplication::focusWidget()));
    QCoreApplication::processEvents();
    EXPECT_GT(windowOf(document).tableView().height(), 30);
    EXPECT_FALSE(sheetOf(document)->geometry().intersects(windowOf(document).tableView().geometry()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(isSheetShown(document));
    EXPECT_EQ(QApplication::focusWidget(), &windowOf(document).tableView());
}

TEST_F(ZLFitDisplayTest, AKeptFitIsShownAndAppliedAndUndone)
{
    ZLChapterDocument* document = fittedDocument(u"a.wav"_s);
    trigger(document, u"fitToFinishedFile"_s);
    EXPECT_EQ(sheetOf(document)->findChild<QTreeView*>(u"fittedMarks"_s)->model()->rowCount(), 2);
    button(document, u"applyFit"_s)->click();
    EXPECT_EQ(times(document), (QList<double> { 10.0, 50.0 }));
    EXPECT_EQ(passingMessage(document), u"The chapters are where the finished file has them."_s);
    trigger(document, u"undo"_s);
    EXPECT_EQ(times(document), (QList<double> { 10.0, 70.0 }));
}

TEST_F(ZLFitDisplayTest, ANewDocumentHasTheChaptersOfTheFileAndThisOneStays)
{
    ZLChapterDocument* document = fittedDocument(u"a.wav"_s);
    trigger(document, u"fitToFinishedFile"_s);
    button(document, u"newFittedDocument"_s)->click();
    ASSERT_EQ(m_controller.documents().size(), 2);
    ZLChapterDocument* fitted = m_controller.documents().last();
    EXPECT_EQ(times(fitted), (QList<double> { 10.0, 50.0 }));
    EXPECT_EQ(fitted->currentDuration(), 80.0);
    EXPECT_TRUE(m_controller.saverOf(fitted)->isUntitled());
    EXPECT_TRUE(fitted->isDocumentEdited());
    EXPECT_EQ(times(document), (QList<double> { 10.0, 70.0 }));
}

TEST_F(ZLFitDisplayTest, WritesTheChaptersAtTheirPlacesIntoTheFinishedFileAndThisDocumentStays)
{
    const QString path = filePath(u"a.wav"_s);
    ASSERT_TRUE(writeWaveFile(path, 80));
    ZLChapterDocument* document = fittedDocument(u"a.wav"_s);
    Q_EMIT windowOf(document).filesDropped({ path });
    auto* delivery = windowOf(document).findChild<ZLDeliverySheet*>(u"deliverySheet"_s);
    ASSERT_NE(delivery, nullptr);
    auto* write = delivery->findChild<QPushButton*>(u"writeChapters"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return write->isEnabled(); }));
    EXPECT_TRUE(delivery->findChild<QLabel*>(u"exportAdviceText"_s)
            ->text()
            .contains(u"at the places where they were found in this file"_s));
    write->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return passingMessage(document).contains(u"chapters are in"_s); }));
    const auto chapters = ZLMediaFile::read(path).value().chapters;
    ASSERT_EQ(chapters.size(), 2);
    EXPECT_EQ(chapters.first().start, 10'000);
    EXPECT_EQ(chapters.last().start, 50'000);
    EXPECT_EQ(times(document), (QList<double> { 10.0, 70.0 }));
}

TEST_F(ZLFitDisplayTest, GoesOnWithTheSheetThatWritesIntoThisFile)
{
    const QString path = storedFile(u"show.zelta"_s);
    ASSERT_TRUE(writeWaveFile(filePath(u"a.wav"_s), 80));
    ZLAudioFileMemory(ZLStateFolder::path(), ZLAudioFileMemory::FittedFiles)
        .remember(path, { .paths = { filePath(u"a.wav"_s) } });
    ZLChapterDocument* document = openFile(path);
    ZLKeptFits::keep(document->extras(),
        { .identifier = u"id"_s,
            .fileName = u"a.wav"_s,
            .alignment = { { { 0.0, 0.0, 80.0, 1.0, 0.1 } }, {}, 80.0, 80.0 } });
    trigger(document, u"fitToFinishedFile"_s);
    ASSERT_TRUE(button(document, u"writeFittedChapters"_s)->isEnabled());
    button(document, u"writeFittedChapters"_s)->click();
    EXPECT_FALSE(isSheetShown(document));
    auto* delivery = windowOf(document).findChild<ZLDeliverySheet*>(u"deliverySheet"_s);
    ASSERT_NE(delivery, nullptr);
    EXPECT_TRUE(delivery->isVisible());
    EXPECT_EQ(delivery->findChild<QTreeView*>(u"deliveryFiles"_s)->model()->rowCount(), 1);
}

TEST_F(ZLFitDisplayTest, MarksArriveWhileItIsOpen)
{
    ZLChapterDocument* document = fittedDocument(u"a.wav"_s);
    trigger(document, u"fitToFinishedFile"_s);
    document->recordButtonPressed();
    m_clock->advance(65.0);
    document->addNewBlankChapter();
    auto* rows = sheetOf(document)->findChild<QTreeView*>(u"fittedMarks"_s)->model();
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows->rowCount() == 3; }));
    EXPECT_TRUE(document->isRecording());
    button(document, u"applyFit"_s)->click();
    EXPECT_EQ(times(document), (QList<double> { 10.0, 45.0, 50.0 }));
    EXPECT_TRUE(document->isRecording());
}

TEST_F(ZLFitDisplayTest, TheStartOfTheClockIsFoundByItsBeepInTheRecording)
{
    ASSERT_TRUE(ZLAtomicFile::write(filePath(u"beep.aiff"_s), ZLSoundResource::named(u"beep.aiff"_s)));
    ZLShowSounds::Samples beep;
    ASSERT_TRUE(ZLSoundDecoder::decode(
        filePath(u"beep.aiff"_s), ZLShowSounds::SamplesPerSecond, [&beep](std::span<const float> part) {
            beep.insert(beep.end(), part.begin(), part.end());
            return true;
        }));
    // As loud as those who speak over it.
    ZLShowSounds::Samples recording = ZLShowSounds::show(5, 30.0);
    for (float& sample : recording)
        sample *= 0.2F;
    constexpr double start = 7.25;
    for (std::size_t at = 0; at < beep.size(); ++at)
        recording[std::size_t(start * ZLShowSounds::SamplesPerSecond) - beep.size() + at] += 0.6F * beep[at];
    ASSERT_TRUE(ZLShowSounds::write(filePath(u"raw.wav"_s), recording));
    ZLChapterDocument* document = newDocument();
    trigger(document, u"fitToFinishedFile"_s);
    button(document, u"chooseRecording"_s)->click();
    choose(dialogOf(document), filePath(u"raw.wav"_s));
    button(document, u"findZero"_s)->click();
    auto* zero = sheetOf(document)->findChild<QDoubleSpinBox*>(u"zero"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return zero->isEnabled() && zero->value() != 0.0; }, 30'000));
    EXPECT_NEAR(zero->value(), start, 0.01);
}

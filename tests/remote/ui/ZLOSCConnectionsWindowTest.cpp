#include "remote/ui/ZLOSCConnectionsWindow.h"

#include "remote/ui/ZLConnectionsFixture.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>

using namespace Qt::StringLiterals;

class ZLOSCConnectionsWindowTest : public ZLConnectionsFixture {
protected:
    [[nodiscard]] std::unique_ptr<ZLOSCConnectionsWindow> makeWindow()
    {
        auto browser = std::make_unique<ZLFakeBrowser>();
        m_browser = browser.get();
        return std::make_unique<ZLOSCConnectionsWindow>(ZLOSCConnectionsSetup {
            .controller = m_controller,
            .publisher = &m_publisher,
            .browser = std::move(browser),
            .networks = [] { return QList<ZLOSCNetwork> {}; },
            .stateStore = ZLWindowStateStore(m_folder.filePath(u"connections.ini"_s)),
        });
    }

    QTemporaryDir m_folder;
    ZLFakePublisher m_publisher;
    ZLFakeBrowser* m_browser = nullptr;
};

TEST_F(ZLOSCConnectionsWindowTest, SizeIsRemembered)
{
    auto window = makeWindow();
    window->present();
    window->resize(700, 650);
    window->close();
    window = makeWindow();
    window->present();
    EXPECT_EQ(window->size(), QSize(700, 650));
    // Also when the program ends while it is open.
    window->resize(720, 640);
    window.reset();
    window = makeWindow();
    window->present();
    EXPECT_EQ(window->size(), QSize(720, 640));
}

TEST_F(ZLOSCConnectionsWindowTest, TheFirstOpeningShowsTheSettingsInFullAndLinesOfTheLog)
{
    // The second style makes the left column the higher one, and is known only when the window is shown.
    for (const QString& style : { QString(), u"QPushButton, QRadioButton { min-height: 2em; }"_s }) {
        QFile::remove(m_folder.filePath(u"connections.ini"_s));
        const auto window = makeWindow();
        window->setStyleSheet(style);
        window->present();
        const auto& settings = *window->findChild<QScrollArea*>();
        EXPECT_EQ(settings.verticalScrollBar()->maximum(), 0) << qPrintable(style);
        EXPECT_GE(child<QTableView>(*window, "log").viewport()->height(), 4 * window->fontMetrics().lineSpacing());
        EXPECT_LE(window->height(), window->screen()->availableSize().height());
    }
}

TEST_F(ZLOSCConnectionsWindowTest, TheSettingsGetTheRoomThatTheyComeToNeed)
{
    const auto window = makeWindow();
    window->present();
    window->resize(940, 790);
    const auto& splitter = *window->findChild<QSplitter*>();
    const int before = splitter.sizes().constFirst();
    m_browser->show(ZLServiceBrowser::State::Unavailable, u"a reason that takes several lines "_s.repeated(8));
    EXPECT_TRUE(QTest::qWaitFor([&] { return splitter.sizes().constFirst() > before; }));
    EXPECT_EQ(window->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    const auto& note = child<QLabel>(*window, "servicesNote");
    EXPECT_GE(note.height(), note.heightForWidth(note.width()));
    EXPECT_GE(note.y(), child<QListWidget>(*window, "services").geometry().bottom());
}

TEST_F(ZLOSCConnectionsWindowTest, SizesThatTheUserChoseStay)
{
    const auto window = makeWindow();
    window->present();
    auto& splitter = *window->findChild<QSplitter*>();
    QWidget* const handle = splitter.handle(1);
    QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(5, 2));
    QTest::mouseMove(handle, QPoint(5, -60));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(5, -60));
    const QList<int> chosen = splitter.sizes();
    EXPECT_GT(window->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    m_publisher.show(ZLServicePublisher::State::Unavailable, u"a reason that takes several lines "_s.repeated(8));
    QCoreApplication::processEvents();
    window->close();
    window->present();
    EXPECT_EQ(splitter.sizes(), chosen);
}

TEST_F(ZLOSCConnectionsWindowTest, EscapeAndTheKeyForClosingCloseIt)
{
    const auto window = makeWindow();
    window->present();
    QTest::keyClick(&child<QLineEdit>(*window, "outputField"), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    window->present();
    EXPECT_TRUE(window->isVisible());
    QTest::keyClick(&child<QTableView>(*window, "log"), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ZLOSCConnectionsWindowTest, EscapeInAnEditorEndsTheEditorAlone)
{
    ZLSettingsManager::setOSCOutputs({ { u"127.0.0.1"_s, 9000 } });
    const auto window = makeWindow();
    window->present();
    auto& table = child<QTableView>(*window, "outputs");
    table.edit(table.model()->index(0, 0));
    auto* editor = table.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ZLOSCConnectionsWindowTest, EveryControlHasANameForScreenReaders)
{
    const auto window = makeWindow();
    window->present();
    int controls = 0;
    const auto widgets = window->findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const bool isControl = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QAbstractItemView*>(widget)
            || qobject_cast<QAbstractSpinBox*>(widget)
            || (qobject_cast<QLineEdit*>(widget) && !qobject_cast<QAbstractSpinBox*>(widget->parentWidget()));
        if (!isControl || widget->objectName().startsWith(u"qt_"_s) || widget->inherits("QHeaderView")
            || widget->inherits("QTableCornerButton"))
            continue;
        ++controls;
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
            << qPrintable(widget->objectName());
    }
    EXPECT_GE(controls, 17);
}

TEST_F(ZLOSCConnectionsWindowTest, AFoundServiceBecomesAnOutput)
{
    const auto window = makeWindow();
    window->present();
    m_browser->find({ { u"Mixer"_s, u"mixer.local"_s, QHostAddress(u"127.0.0.1"_s), 8000, false } });
    child<QListWidget>(*window, "services").setCurrentRow(0);
    click(*window, "addService");
    EXPECT_EQ(ZLSettingsManager::oscOutputs(), (QList { ZLOSCDestination { u"127.0.0.1"_s, 8000 } }));
}

TEST_F(ZLOSCConnectionsWindowTest, TheLogIsThatOfTheController)
{
    const auto window = makeWindow();
    window->present();
    m_controller.performMessage(ZLOSCMessage(u"/zl/newChapter"_s, { 0.0F }), u"192.0.2.7:8000"_s);
    m_controller.performMessage(ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }), u"192.0.2.7:8000"_s);
    m_controller.log().flush();
    child<QAbstractButton>(*window, "onlyProblems").click();
    EXPECT_EQ(column(*child<QTableView>(*window, "log").model(), ZLOSCLog::OutcomeColumn),
        (QStringList { u"ignored: value 0"_s, u"did nothing: no document is open"_s }));
}

TEST_F(ZLOSCConnectionsWindowTest, OneAndAHalfTimesTheFontStillFits)
{
    const auto window = makeWindow();
    QFont font = window->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    window->setFont(font);
    window->present();
    window->resize(1000, 700);
    EXPECT_LE(window->minimumSizeHint().width(), 1000);
    EXPECT_LE(window->minimumSizeHint().height(), 700);
    const auto buttons = window->findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons) {
        if (button->isVisible()) {
            EXPECT_GE(button->height(), button->sizeHint().height()) << qPrintable(button->text());
        }
    }
}

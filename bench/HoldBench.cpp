// How long each thing that a person may do holds the main thread: `zelta_hold_bench CHAPTERS`, in a window. With `bare`
// behind it, a window that has nothing of Zelta is opened first.
//
// A beat comes every millisecond from the event loop. Printed is the longest time between two beats after each thing,
// with the saves that it causes: by the clock, and in processor time of the main thread alone, which a busy machine
// does not make longer. A wait for a disk or another thread is in the first one only.
#include "BenchDocument.h"
#include "app/ZLDocumentController.h"
#include "app/ui/ZLDesktopApplication.h"
#include "app/ui/windows/ZLDocumentWindows.h"
#include "app/ui/windows/ZLImportDisplay.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "settings/ZLSettingsManager.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolBar>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Milliseconds after each thing in which its effects are measured, as the write that follows: longer for a long list.
constexpr int shortestTimeForEffects = 2500;
constexpr int chaptersPerMillisecond = 25;
/// The same after a preparation, which is not measured.
constexpr int timeForPreparation = 10'000;

double millisecondsOf(clockid_t clock)
{
    timespec time {};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// The longest times between two turns of the event loop.
class HeartBeat {
public:
    HeartBeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_timer.start(1);
        beat();
    }

    void forget()
    {
        beat();
        m_longestWall = 0.0;
        m_longestProcessor = 0.0;
    }
    [[nodiscard]] double longestWall() const { return m_longestWall; }
    [[nodiscard]] double longestProcessor() const { return m_longestProcessor; }

private:
    void beat()
    {
        const double wall = millisecondsOf(CLOCK_MONOTONIC);
        const double processor = millisecondsOf(CLOCK_THREAD_CPUTIME_ID);
        m_longestWall = std::max(m_longestWall, wall - m_wall);
        m_longestProcessor = std::max(m_longestProcessor, processor - m_processor);
        m_wall = wall;
        m_processor = processor;
    }

    QTimer m_timer;
    double m_wall = 0.0;
    double m_processor = 0.0;
    double m_longestWall = 0.0;
    double m_longestProcessor = 0.0;
};

/// One document in a window, and a person who uses it.
class Desk {
public:
    explicit Desk(const QString& folder)
        : m_folder(folder)
    {
    }

    void open(const QString& name) { m_windows.open({ filePath(name) }); }
    [[nodiscard]] QString filePath(const QString& name) const { return m_folder + u'/' + name; }
    [[nodiscard]] ZLChapterDocument& document() { return *m_controller.documents().last(); }
    [[nodiscard]] ZLChapterDocumentWindow& window() { return *m_windows.windowOf(&document()); }
    [[nodiscard]] ZLChapterPointer middleChapter()
    {
        return document().chapterManager().chapterAtIndex(document().chapterManager().count() / 2);
    }

    void trigger(const QString& name) { window().findChild<QAction*>(name)->trigger(); }
    void openMenu(const QString& name) { Q_EMIT window().findChild<QMenu*>(name)->aboutToShow(); }
    void chooseInDialog(const QString& name)
    {
        auto* dialog = window().findChild<QFileDialog*>(u"savePanel"_s);
        dialog->findChild<QLineEdit*>()->setText(filePath(name));
        static_cast<QDialog*>(dialog)->accept();
    }
    /// The dialog of Qt and nothing else, as a yardstick.
    void openBareDialog()
    {
        auto* dialog = new QFileDialog(&window());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->selectFile(filePath(u"bare.zelta"_s));
        dialog->open();
        QTimer::singleShot(shortestTimeForEffects / 2, dialog, &QDialog::reject);
    }
    /// Another program writes the file.
    void changeFile(const QString& name)
    {
        ZLChapterDocument other { ZLDocumentEnvironment {} };
        other.readFromData(document().dataOfType());
        other.deleteLastChapter();
        (void)ZLAtomicFile::write(filePath(name), other.dataOfType());
        document().addChapter(std::make_shared<ZLChapter>());
    }
    void pressInBar(const QString& text)
    {
        const auto buttons = window().messageBar().findChildren<QPushButton*>();
        for (QPushButton* button : buttons) {
            if (button->isVisible() && button->text().remove(u'&') == text) {
                button->click();
                return;
            }
        }
        std::printf("There is no button %s.\n", qPrintable(text));
    }
    void showListOf(int count)
    {
        QString text;
        for (int number = 0; number < count; ++number)
            text += QStringLiteral("%1:%2 Imported %3\n")
                        .arg(number / 20)
                        .arg(number % 20 * 3, 2, 10, QLatin1Char('0'))
                        .arg(number);
        window().findChild<ZLImportDisplay*>()->importText(text);
    }
    void importList() { window().findChild<QPushButton*>(u"importNow"_s)->click(); }
    void close() { window().close(); }
    [[nodiscard]] bool isOpening() const { return m_windows.isOpening(); }

private:
    QString m_folder;
    ZLDocumentController m_controller { ZLDocumentControllerSetup { .stateFolder = m_folder + u"/state"_s } };
    ZLDocumentWindows m_windows { m_controller };
};

/// What Qt alone needs for the first window of a program: fonts, style, menus, buttons and a table.
void openBareWindow()
{
    constexpr int menuCount = 6;
    constexpr int itemCount = 10;
    auto* window = new QMainWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    auto* buttons = window->addToolBar(u"Buttons"_s);
    for (int number = 0; number < menuCount; ++number) {
        QMenu* menu = window->menuBar()->addMenu(u"Menu %1"_s.arg(number));
        for (int item = 0; item < itemCount; ++item)
            menu->addAction(u"Item %1"_s.arg(item));
        buttons->addAction(u"Button %1"_s.arg(number));
    }
    auto* table = new QTableWidget(itemCount * 2, 4, window);
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column)
            table->setItem(row, column, new QTableWidgetItem(u"Cell %1"_s.arg(row)));
    }
    window->setCentralWidget(table);
    window->statusBar()->showMessage(u"Bare"_s);
    window->resize(1000, 620);
    window->show();
}

/// Something that a person does. Preparations have no name and are not printed.
struct Step {
    const char* name;
    std::function<void()> perform;
};

std::vector<Step> recordingSteps(Desk& desk)
{
    return {
        { "opening the document", [&] { desk.open(u"show.zelta"_s); } },
        { "the start", [&] { desk.document().recordButtonPressed(); } },
        { "the clock and nothing else", [] {} },
        { "a chapter", [&] { desk.document().addChapterButtonPressed(); } },
        { "a title",
            [&] { desk.document().updateChapterToTitle(desk.document().chapterManager().lastChapter(), u"T"_s); } },
        { "a chapter removed", [&] { desk.document().removeChapter(desk.middleChapter()); } },
        { "its undo", [&] { desk.document().undoManager().undo(); } },
        { "a time", [&] { desk.document().updateChapterToTime(desk.middleChapter(), 1.0); } },
        { "its undo", [&] { desk.document().undoManager().undo(); } },
        { "opening the File menu", [&] { desk.openMenu(u"fileMenu"_s); } },
        { "Save while recording", [&] { desk.trigger(u"save"_s); } },
        { "the dialog of Save As, the first one", [&] { desk.trigger(u"saveAs"_s); } },
        { "Save As while recording", [&] { desk.chooseInDialog(u"other.zelta"_s); } },
        { "the pause", [&] { desk.document().recordButtonPressed(); } },
    };
}

std::vector<Step> pausedSteps(Desk& desk)
{
    return {
        { "opening the File menu, paused", [&] { desk.openMenu(u"fileMenu"_s); } },
        { "Save", [&] { desk.trigger(u"save"_s); } },
        { nullptr, [&] { desk.document().updateChapterToTitle(desk.middleChapter(), u"T"_s); } },
        { "the dialog of Save As, a later one", [&] { desk.trigger(u"saveAs"_s); } },
        { "Save As", [&] { desk.chooseInDialog(u"third.zelta"_s); } },
        { "yardstick: a bare file dialog of Qt", [&] { desk.openBareDialog(); } },
        { "opening the Revert To menu", [&] { desk.openMenu(u"revertMenu"_s); } },
        { nullptr, [&] { desk.document().updateChapterToTitle(desk.middleChapter(), u"U"_s); } },
        { "Revert to Last Saved", [&] { desk.trigger(u"revert"_s); } },
        { "its undo", [&] { desk.document().undoManager().undo(); } },
        { nullptr, [&] { desk.changeFile(u"third.zelta"_s); } },
        { "Keep Mine", [&] { desk.pressInBar(u"Keep Mine"_s); } },
        { nullptr, [&] { desk.changeFile(u"third.zelta"_s); } },
        { "Take Theirs", [&] { desk.pressInBar(u"Take Theirs"_s); } },
        { nullptr, [&] { desk.changeFile(u"third.zelta"_s); } },
        { "Keep Both", [&] { desk.pressInBar(u"Keep Both"_s); } },
        { "Move Chapters", [&] { desk.document().moveChaptersByMilliseconds(500.0F); } },
        { "its undo", [&] { desk.document().undoManager().undo(); } },
        { "the sheet with 10,000 chapters to import", [&] { desk.showListOf(10'000); } },
        { "the import of them", [&] { desk.importList(); } },
        { "its undo", [&] { desk.document().undoManager().undo(); } },
        { nullptr, [&] { desk.document().recordButtonPressed(); } },
        { "opening another document meanwhile", [&] { desk.open(u"second.zelta"_s); } },
        { nullptr, [&] { desk.document().updateChapterToTitle(desk.middleChapter(), u"V"_s); } },
        { "closing a document while another records", [&] { desk.close(); } },
    };
}

/// Performs one step after the other.
class Day {
public:
    Day(std::vector<Step> steps, int timeForEffects, const Desk& desk)
        : m_steps(std::move(steps))
        , m_timeForEffects(timeForEffects)
        , m_desk(desk)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { goOn(); });
        m_timer.start(m_timeForEffects);
    }

private:
    void goOn()
    {
        if (m_desk.isOpening()) {
            m_timer.start(m_timeForEffects);
            return;
        }
        if (m_next > 0 && m_steps.at(m_next - 1).name) {
            std::printf(
                "%-42s %10.2f %10.2f\n", m_steps.at(m_next - 1).name, m_beat.longestWall(), m_beat.longestProcessor());
            std::fflush(stdout);
        }
        if (m_next == m_steps.size()) {
            QCoreApplication::exit();
            return;
        }
        m_beat.forget();
        m_timer.start(m_steps.at(m_next).name ? m_timeForEffects : timeForPreparation);
        m_steps.at(m_next++).perform();
    }

    std::vector<Step> m_steps;
    const int m_timeForEffects;
    const Desk& m_desk;
    std::size_t m_next = 0;
    QTimer m_timer;
    HeartBeat m_beat;
};

}

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    for (const char* place : { "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR" })
        qputenv(place, home.path().toLocal8Bit());
    ZLDesktopApplication application(argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    ZLSettingsManager::setCreateNewChapterOnStart(false);
    const int count = argc > 1 ? std::atoi(argv[1]) : 0;
    for (const QString& name : { u"show.zelta"_s, u"second.zelta"_s })
        (void)ZLAtomicFile::write(home.filePath(name), BenchDocument::bytes(count));
    Desk desk(home.path());
    std::vector<Step> steps;
    if (argc > 2)
        steps.push_back({ "yardstick: a bare window of Qt, first", openBareWindow });
    for (Step& step : recordingSteps(desk))
        steps.push_back(std::move(step));
    for (Step& step : pausedSteps(desk))
        steps.push_back(std::move(step));
    std::printf("%-42s %10s %10s\n", "milliseconds at most", "clock", "processor");
    const Day day(std::move(steps), shortestTimeForEffects + count / chaptersPerMillisecond, desk);
    return QCoreApplication::exec();
}

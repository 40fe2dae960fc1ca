// What one step costs in a window with a long list: add, edit, undo, repaint, and opening and saving the file.
// Every step includes the update of the window. Run through bench/report, which prints the ratios.
#include "BenchDocument.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

class HandClock final : public ZLHostClock {
public:
    [[nodiscard]] double now() const override { return m_now; }
    void advance(double seconds) { m_now += seconds; }

private:
    double m_now = 100.0;
};

/// A recording document with `count` chapters in a shown window.
struct Workplace {
    explicit Workplace(int count)
        : clock(std::make_shared<HandClock>())
        , document(ZLDocumentEnvironment { .hostClock = clock })
        , window(document)
    {
        document.readFromData(BenchDocument::bytes(count));
        window.resize(1000, 620);
        window.show();
        document.startRecordingWithTime(clock->now());
        showChanges();
    }

    void addAtTheEnd()
    {
        clock->advance(1.0);
        document.addNewBlankChapter();
    }

    static void showChanges() { QCoreApplication::processEvents(); }

    std::shared_ptr<HandClock> clock;
    ZLChapterDocument document;
    ZLChapterDocumentWindow window;
};

void addChapter(benchmark::State& state)
{
    Workplace place(int(state.range(0)));
    for (auto _ : state) {
        place.addAtTheEnd();
        Workplace::showChanges();
        state.PauseTiming();
        place.document.undoManager().undo();
        Workplace::showChanges();
        state.ResumeTiming();
    }
}

void undoAddedChapter(benchmark::State& state)
{
    Workplace place(int(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        place.addAtTheEnd();
        Workplace::showChanges();
        state.ResumeTiming();
        place.document.undoManager().undo();
        Workplace::showChanges();
    }
}

void editTitle(benchmark::State& state)
{
    Workplace place(int(state.range(0)));
    const ZLChapterPointer chapter = place.document.chapterManager().chapterAtIndex(state.range(0) / 2);
    int edits = 0;
    for (auto _ : state) {
        place.document.updateChapterToTitle(chapter, QString::number(++edits));
        Workplace::showChanges();
    }
}

void editTime(benchmark::State& state)
{
    Workplace place(int(state.range(0)));
    const ZLChapterPointer chapter = place.document.chapterManager().chapterAtIndex(state.range(0) / 2);
    double offset = 7.0;
    for (auto _ : state) {
        // To and fro past its neighbours, so that the order breaks every time.
        place.document.updateChapterToTime(chapter, chapter->timeStamp() + offset);
        Workplace::showChanges();
        offset = -offset;
    }
}

void repaintVisibleRows(benchmark::State& state)
{
    Workplace place(int(state.range(0)));
    auto* table = place.window.findChild<QTableView*>();
    for (auto _ : state)
        table->viewport()->repaint();
}

void updateClockDisplay(benchmark::State& state)
{
    Workplace place(int(state.range(0)));
    for (auto _ : state) {
        place.clock->advance(0.1);
        place.document.updateDisplay();
        Workplace::showChanges();
    }
}

/// Until the window has been painted. Closing it again is no part of opening.
template <typename MakeWindow>
void openWindows(benchmark::State& state, const MakeWindow& makeWindow)
{
    for (auto _ : state) {
        std::unique_ptr<QMainWindow> window = makeWindow();
        window->resize(1000, 620);
        window->show();
        Workplace::showChanges();
        state.PauseTiming();
        window.reset();
        Workplace::showChanges();
        state.ResumeTiming();
    }
}

/// Where a window keeps that it was left with its drawer open or closed.
ZLWindowStateStore stateWithDrawer(ZLChapterDocument& document, const QTemporaryDir& folder, bool isOpen)
{
    ZLWindowStateStore store(folder.filePath(u"window.ini"_s));
    ZLChapterDocumentWindow former(document, nullptr, store);
    if (former.isDrawerOpen() != isOpen)
        former.toggleDrawer();
    former.saveWindowState();
    return store;
}

void openWindowWithDrawer(benchmark::State& state, bool isOpen)
{
    ZLChapterDocument document({});
    document.readFromData(BenchDocument::bytes(int(state.range(0))));
    const QTemporaryDir folder;
    const ZLWindowStateStore store = stateWithDrawer(document, folder, isOpen);
    openWindows(state, [&] { return std::make_unique<ZLChapterDocumentWindow>(document, nullptr, store); });
}

void openWindow(benchmark::State& state)
{
    openWindowWithDrawer(state, false);
}

void openWindowWithOpenDrawer(benchmark::State& state)
{
    openWindowWithDrawer(state, true);
}

/// The yardstick: as many menus, items and buttons as a window with a closed drawer has, and a table of the same
/// chapters, by Qt's own classes alone.
void openBareWindow(benchmark::State& state)
{
    ZLChapterDocument document({});
    document.readFromData(BenchDocument::bytes(int(state.range(0))));
    const QTemporaryDir folder;
    const ZLChapterDocumentWindow model(document, nullptr, stateWithDrawer(document, folder, false));
    openWindows(state, [&] {
        auto window = std::make_unique<QMainWindow>();
        for (const QAction* menu : model.menuBar()->actions()) {
            auto* bareMenu = window->menuBar()->addMenu(menu->text());
            for (const QAction* item : menu->menu()->actions())
                bareMenu->addAction(item->text());
        }
        auto* toolbar = window->addToolBar(u"Toolbar"_s);
        const auto buttons = model.findChildren<QToolButton*>();
        for (const QToolButton* button : buttons)
            toolbar->addAction(button->icon(), button->text());
        auto* table = new QTableView(window.get());
        table->setModel(&document.tableModel());
        window->setCentralWidget(table);
        window->statusBar()->showMessage(u"Bare"_s);
        return window;
    });
}

void openFile(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"bench.zelta"_s);
    if (!ZLAtomicFile::write(path, BenchDocument::bytes(int(state.range(0)))))
        state.SkipWithError("no file to open");
    for (auto _ : state) {
        auto document = std::make_unique<ZLChapterDocument>(ZLDocumentEnvironment {});
        const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
        if (!document->readFromData(bytes.value()))
            state.SkipWithError("the file was not read");
        // Closing it again is no part of opening.
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
}

void saveFile(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"bench.zelta"_s);
    ZLChapterDocument document({});
    document.readFromData(BenchDocument::bytes(int(state.range(0))));
    for (auto _ : state) {
        if (!ZLAtomicFile::write(path, document.dataOfType()))
            state.SkipWithError("the file was not written");
    }
}

void makeFileBytes(benchmark::State& state)
{
    ZLChapterDocument document({});
    document.readFromData(BenchDocument::bytes(int(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(document.dataOfType());
}

}

#define ZELTA_BENCH(name) BENCHMARK(name)->Arg(100)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)
ZELTA_BENCH(addChapter);
ZELTA_BENCH(undoAddedChapter);
ZELTA_BENCH(editTitle);
ZELTA_BENCH(editTime);
ZELTA_BENCH(repaintVisibleRows);
ZELTA_BENCH(updateClockDisplay);
ZELTA_BENCH(openWindow);
ZELTA_BENCH(openWindowWithOpenDrawer);
ZELTA_BENCH(openBareWindow);
ZELTA_BENCH(openFile);
ZELTA_BENCH(saveFile);
ZELTA_BENCH(makeFileBytes);

/// `--write-document COUNT PATH` writes the document that the peers read; everything else is Google Benchmark's.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    for (const char* place : { "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR" })
        qputenv(place, home.path().toLocal8Bit());
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 4 && arguments[1] == "--write-document"_L1)
        return ZLAtomicFile::write(arguments[3], BenchDocument::bytes(arguments[2].toInt())) ? 0 : 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

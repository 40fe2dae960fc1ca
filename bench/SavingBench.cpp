// How long marks and the automatic save hold the main thread with a long document: `zelta_saving_bench CHAPTERS`.
// Prints the longest step of each kind in milliseconds: by the clock, and of processor time alone, which a busy machine
// does not make longer.
#include "BenchDocument.h"
#include "document/saving/ZLDocumentSaver.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr int marks = 200;
constexpr int millisecondsBetweenMarks = 20;

double millisecondsOf(clockid_t clock)
{
    timespec time {};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// The longest of many steps.
struct Longest {
    double wall = 0.0;
    double processor = 0.0;

    template <typename Step>
    void measure(Step step)
    {
        const double wallBefore = millisecondsOf(CLOCK_MONOTONIC);
        const double processorBefore = millisecondsOf(CLOCK_THREAD_CPUTIME_ID);
        step();
        wall = std::max(wall, millisecondsOf(CLOCK_MONOTONIC) - wallBefore);
        processor = std::max(processor, millisecondsOf(CLOCK_THREAD_CPUTIME_ID) - processorBefore);
    }

    void print(const char* name) const { std::printf("%-34s %10.2f %10.2f\n", name, wall, processor); }
};

/// Measures each event that the main thread handles.
class MeasuredApplication final : public QCoreApplication {
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        bool isHandled = false;
        longestEvent.measure([&] { isHandled = QCoreApplication::notify(receiver, event); });
        return isHandled;
    }

    Longest longestEvent;
};

}

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    for (const char* place : { "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR" })
        qputenv(place, home.path().toLocal8Bit());
    MeasuredApplication application(argc, argv);
    const int count = argc > 1 ? std::atoi(argv[1]) : 0;
    ZLChapterDocument document { ZLDocumentEnvironment {} };
    BenchDocument::fill(document, count);
    const QString path = home.filePath(QStringLiteral("show.zelta"));
    const QByteArray bytes = document.dataOfType();
    if (!ZLAtomicFile::write(path, bytes))
        return 1;
    const ZLRecoveryFolder recovery(home.filePath(QStringLiteral("recovery")));
    ZLDocumentSaver saver(document, recovery, ZLSavingMachinery(), path,
        ZLReadDocument::of(ZLDocumentParts::of(document.snapshot()), bytes));

    Longest start;
    Longest mark;
    Longest title;
    QTimer timer;
    int made = 0;
    QObject::connect(&timer, &QTimer::timeout, &application, [&] {
        mark.measure([&] { document.addChapterButtonPressed(); });
        title.measure(
            [&] { document.updateChapterToTitle(document.chapterManager().lastChapter(), QString::number(made)); });
        if (++made == marks)
            QCoreApplication::quit();
    });
    // The digest of the file is made in the moments after its opening.
    QTimer::singleShot(1000, &application, [&] {
        start.measure([&] { document.recordButtonPressed(); });
        timer.start(millisecondsBetweenMarks);
    });
    QCoreApplication::exec();
    std::printf("%-34s %10s %10s\n", "milliseconds at most", "clock", "processor");
    start.print("the start, with the first journal");
    mark.print("a mark");
    title.print("a title");
    application.longestEvent.print("any event, saves among them");
    return 0;
}

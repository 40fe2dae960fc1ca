// From the press of the key that makes a mark to its record on the disk, beside a bare write and fdatasync of as many
// bytes in the same folder, both interleaved in one run. Prints the medians and the worst cases in milliseconds.
#include "BenchDocument.h"
#include "document/saving/journal/ZLDocumentJournal.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMarks = 200;
constexpr std::chrono::milliseconds kSyncPatience { 10000 };

double millisecondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

struct Samples {
    void print(const char* name)
    {
        std::sort(values.begin(), values.end());
        std::printf("  %-28s median %7.3f   95 %% %7.3f   worst %7.3f\n", name, values.at(values.size() / 2),
            values.at(values.size() * 95 / 100), values.back());
    }
    std::vector<double> values {};
};

void measure(int chapterCount, const QString& folder)
{
    ZLChapterDocument document({});
    document.readFromData(BenchDocument::bytes(chapterCount));
    ZLDocumentJournal journal(document, {});
    const QString path = folder + u"/%1.journal"_s.arg(chapterCount);
    journal.begin(path, {}, {});
    QObject::connect(&document, &ZLChapterDocument::changed, &journal, &ZLDocumentJournal::note);
    document.startRecordingWithTime(1.0);
    journal.file()->waitUntilSynced(kSyncPatience);
    const int bare = open(QFile::encodeName(path + u".bare"_s).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    Samples command;
    Samples onDisk;
    Samples bareSync;
    for (int mark = 0; mark < kMarks; ++mark) {
        const qint64 sizeBefore = journal.file()->size();
        const auto start = std::chrono::steady_clock::now();
        document.addChapterButtonPressed();
        command.values.push_back(millisecondsSince(start));
        journal.file()->waitUntilSynced(kSyncPatience);
        onDisk.values.push_back(millisecondsSince(start));
        const QByteArray bytes(journal.file()->size() - sizeBefore, 'x');
        const auto bareStart = std::chrono::steady_clock::now();
        if (write(bare, bytes.constData(), size_t(bytes.size())) != bytes.size() || fdatasync(bare) != 0)
            std::perror("bare write");
        bareSync.values.push_back(millisecondsSince(bareStart));
    }
    close(bare);
    std::printf("%d chapters, %d marks, milliseconds\n", chapterCount, kMarks);
    command.print("key press to kernel");
    onDisk.print("key press to disk");
    bareSync.print("bare write and fdatasync");
}

}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    // Not in the folder for temporary files, which may be no disk at all.
    const QTemporaryDir folder(
        argc > 1 ? QString::fromLocal8Bit(argv[1]) + u"/journal-bench-XXXXXX"_s : u"journal-bench-XXXXXX"_s);
    for (const int chapterCount : { 0, 1000, 10'000 })
        measure(chapterCount, folder.path());
    return 0;
}

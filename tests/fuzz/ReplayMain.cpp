// Stands in for the fuzzer in the ordinary test run: gives a fuzz entry every file of the corpus folders named on the
// command line, and for each a fixed number of altered copies. The alterations are the same in every run.
#include <QDirIterator>
#include <QFile>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

constexpr int kAlteredCopies = 1000;

void feed(const QByteArray& content)
{
    // An allocation of exactly that size lets the sanitizers see a byte too many.
    const std::vector<std::uint8_t> bytes(content.cbegin(), content.cend());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

QByteArray altered(QByteArray content, std::minstd_rand& random)
{
    const auto below = [&random](qsizetype limit) { return qsizetype(random() % std::uint64_t(limit)); };
    for (qsizetype change = 0; change <= below(4) && !content.isEmpty(); ++change) {
        const qsizetype at = below(content.size());
        switch (below(4)) {
        case 0:
            content[at] = char(random());
            break;
        case 1:
            content[at] = char(content.at(at) ^ (1 << below(8)));
            break;
        case 2:
            content.remove(at, 1 + below(4));
            break;
        default:
            content.insert(at, content.mid(below(content.size()), 1 + below(8)));
            break;
        }
    }
    return content;
}

int replayFolder(const QString& folder)
{
    QStringList paths;
    for (QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
        paths.append(files.next());
    std::sort(paths.begin(), paths.end());
    std::minstd_rand random;
    for (const QString& path : std::as_const(paths)) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return 0;
        const QByteArray content = file.readAll();
        feed(content);
        for (int copy = 0; copy < kAlteredCopies; ++copy)
            feed(altered(content, random));
    }
    return int(paths.size());
}

}

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s CORPUS-FOLDER…\n", argv[0]);
        return 2;
    }
    for (int index = 1; index < argc; ++index) {
        const int files = replayFolder(QString::fromLocal8Bit(argv[index]));
        if (files == 0) {
            std::fprintf(stderr, "%s: no corpus there, or a file that cannot be read\n", argv[index]);
            return 1;
        }
        std::printf("%s: %d files, each with %d altered copies\n", argv[index], files, kAlteredCopies);
    }
    return 0;
}

// What each export format costs for a long list, beside writing the same bytes to the disk. Run through bench/report,
// which prints the ratios.
#include "export/ZLExporter.h"
#include "export/formats/ZLRegisterExporters.h"
#include "platform/ZLAtomicFile.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

ZLExportInput exportInput(qsizetype count)
{
    ZLExportInput input { .duration = double(count) * 3.25,
        .fileBaseName = u"Show"_s,
        .existingBytes = "<Session>\n<Markers>\n<Marker Id=\"1\" Name=\"old\" />\n</Markers>\n</Session>\n" };
    for (qsizetype i = 0; i < count; ++i) {
        auto chapter = std::make_shared<ZLChapter>();
        chapter->setTimeStamp(double(i) * 3.25);
        chapter->setTitle(u"Topic number %1"_s.arg(i));
        chapter->setLink(u"https://example.org/shows/%1"_s.arg(i));
        input.chapters.append(chapter);
    }
    return input;
}

void exportBytes(benchmark::State& state, const ZLExporterClass& exporterClass)
{
    const ZLExportInput input = exportInput(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(exporterClass.create()->exportedBytes(input));
}

void writeBytes(benchmark::State& state, const ZLExporterClass& exporterClass)
{
    const auto bytes = exporterClass.create()->exportedBytes(exportInput(state.range(0)));
    const QTemporaryDir folder;
    for (auto _ : state) {
        if (!bytes || !ZLAtomicFile::write(folder.filePath(u"bench"_s), bytes.value()))
            state.SkipWithError("the file was not written");
    }
}

}

int main(int argc, char** argv)
{
    constexpr std::int64_t chapters = 100'000;
    ZLRegisterExporters();
    for (const ZLExporterClass& exporterClass : ZLExporter::allExporters()) {
        const std::string name = exporterClass.format().name.toStdString();
        benchmark::RegisterBenchmark(("export " + name).c_str(), exportBytes, exporterClass)
            ->Arg(chapters)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("write " + name).c_str(), writeBytes, exporterClass)
            ->Arg(chapters)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

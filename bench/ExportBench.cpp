// What each export format costs for a long list, beside writing the same bytes to the disk. Run through bench/report,
// which prints the ratios.
#include "BenchChapters.h"
#include "export/ZLExporter.h"
#include "export/formats/ZLRegisterExporters.h"
#include "platform/ZLAtomicFile.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

ZLExportInput exportInput(qsizetype count)
{
    return { .chapters = BenchChapters::list(int(count)),
        .duration = double(count) * BenchChapters::Seconds,
        .fileBaseName = u"Show"_s,
        .existingBytes = "<Session>\n<Markers>\n<Marker Id=\"1\" Name=\"old\" />\n</Markers>\n</Session>\n" };
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

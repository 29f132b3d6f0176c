#include "fakes/OneFile.h"
#include "services/FileDetails.h"

#include <benchmark/benchmark.h>

namespace netrove {
namespace {

/// The texts of a result's row, without the time of the file system.
void TextsOfAFile(benchmark::State& state) {
    OneFile file;
    file.length = 1'500'000;
    file.modified = QDateTime::currentDateTime();
    Settings settings;
    settings.SizeFormat = static_cast<qint16>(state.range(0));
    const QString path = QStringLiteral("\\\\SERVER\\SHARE\\MUSIC\\ALBUM\\song.mp3");
    for (auto _ : state)
        benchmark::DoNotOptimize(FileDetails(path, file, settings));
}
BENCHMARK(TextsOfAFile)->Arg(1)->Arg(3);

} // namespace
} // namespace netrove

BENCHMARK_MAIN();

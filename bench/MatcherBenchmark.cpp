#include "runtime/Pattern.h"
#include "runtime/Yield.h"

#include <benchmark/benchmark.h>

namespace {

using netrove::Pattern;

/// Names as they stand in shared folders.
const std::vector<QString>& Names() {
    static const std::vector<QString> names = {
        QStringLiteral("01 - The Long Road Home.mp3"),
        QStringLiteral("IMG_20190714_183205.jpg"),
        QStringLiteral("Quarterly report 2021 (final).docx"),
        QStringLiteral("index.html"),
        QStringLiteral("Songs of the Sea.MP3"),
        QStringLiteral("Übersicht März.xlsx"),
        QStringLiteral("README"),
        QStringLiteral("libnetwork-helpers.so.4.2.1"),
    };
    return names;
}

/// Nanoseconds a name.
void BM_Match(benchmark::State& state, const char* text) {
    const Pattern pattern(QString::fromUtf8(text));
    for (auto _ : state) {
        for (const QString& name : Names())
            benchmark::DoNotOptimize(pattern.Matches(name));
    }
    state.SetItemsProcessed(state.iterations() * qint64(Names().size()));
    state.counters["per_name"] =
        benchmark::Counter(double(state.iterations()) * double(Names().size()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK_CAPTURE(BM_Match, ending, "*.mp3");
BENCHMARK_CAPTURE(BM_Match, inside, "*song*");
BENCHMARK_CAPTURE(BM_Match, beginning, "report*");
BENCHMARK_CAPTURE(BM_Match, list, "*[0-9][0-9]*.[jp]*");

void BM_MatchWorstCase(benchmark::State& state) {
    const Pattern pattern(QStringLiteral("*aaaaaaab*aaaaaaab*"));
    const QString name(255, u'a');
    for (auto _ : state)
        benchmark::DoNotOptimize(pattern.Matches(name));
}
BENCHMARK(BM_MatchWorstCase);

/// A yield with no pass due: what each of the many yields of a walk costs.
void BM_Yield(benchmark::State& state) {
    netrove::SetYieldPass([] {});
    for (auto _ : state)
        netrove::Yield();
}
BENCHMARK(BM_Yield);

} // namespace

BENCHMARK_MAIN();

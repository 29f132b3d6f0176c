#include "BenchWindow.h"
#include "redirector/FolderProvider.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Files = 5000;
constexpr int Folders = 10;

/// A folder that stands for a network with one share of 5,000 files.
void MakeShare(const QString& root) {
    for (int folder = 0; folder < Folders; ++folder) {
        const QString path =
            root +
            QStringLiteral("/WG/SERVER/SHARE/FOLDER %1").arg(folder, 2, 10, QLatin1Char('0'));
        QDir().mkpath(path);
        for (int number = 0; number < Files / Folders; ++number) {
            QFile file(path + QStringLiteral("/Some Artist - Song Number %1.mp3").arg(number));
            if (!file.open(QIODevice::WriteOnly))
                qFatal("The share can't be written.");
            file.write("not really audio");
        }
    }
}

/// A whole search of the share from the click on, in the real window.
void SearchIntoTheWindow(benchmark::State& state) {
    const QTemporaryDir folder;
    MakeShare(folder.path());
    std::vector<std::unique_ptr<netrove::NetworkProvider>> providers;
    providers.push_back(
        std::make_unique<netrove::FolderProvider>(QStringLiteral("Net"), folder.path()));
    netrove::Network network(std::move(providers));
    netrove::BenchWindow window(network, folder.path());
    auto& button = window.Find<QPushButton>("cmdStartSearch");
    for (auto _ : state) {
        button.click();
        QApplication::processEvents();
        if (window.Results().Count() != Files)
            state.SkipWithError("not all files were found");
    }
    state.SetItemsProcessed(state.iterations() * Files);
}
BENCHMARK(SearchIntoTheWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

#include "AllocatedBytes.h"
#include "browser/frmNWDialog.h"
#include "desktop/WindowYield.h"
#include "fakes/DesktopFakes.h"
#include "runtime/Yield.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <benchmark/benchmark.h>

namespace {

using namespace netrove::NetEnum;

/// Providers at the first level, and below each of them workgroups, all told at once.
class WideNetwork : public netrove::NetworkEnumeration {
public:
    WideNetwork(int providers, int workgroups) : providers_(providers), workgroups_(workgroups) {}

    quint32 OpenEnum(qint32 /*scope*/, qint32 type, qint32 /*usage*/,
                     const netrove::NetRecord& start, Handle& handle) override {
        if (type != TypeDisk)
            return BadNetPath;
        handle = 1;
        start_ = start.lpRemoteName;
        left_ = start_.isEmpty() ? providers_ : workgroups_;
        return NoError;
    }
    quint32 EnumResource(Handle /*handle*/, qint32& count, std::vector<netrove::NetRecord>& buffer,
                         quint32& /*bufferSize*/) override {
        buffer.clear();
        for (int number = 1; number <= left_; ++number)
            buffer.push_back({.dwDisplayType = start_.isEmpty() ? DisplayNetwork : DisplayServer,
                              .lpRemoteName = start_ + QStringLiteral("\\COMPUTER-%1").arg(number),
                              .lpProvider = QStringLiteral("Wide")});
        count = qint32(buffer.size());
        left_ = 0;
        return NoError;
    }
    void CloseEnum(Handle /*handle*/) override {}
    QString Workgroup(const QString& /*computer*/) override { return {}; }

private:
    int providers_;
    int workgroups_;
    QString start_;
    int left_ = 0;
};

/// The dialog on the screen.
class Browser {
public:
    explicit Browser(int providers, int workgroups) : network_(providers, workgroups) {
        dialog_.findChild<QTimer*>(QStringLiteral("tmrNodes"))->setInterval(0);
    }

    /// Shows it and waits until the first level is in the tree.
    void Load() {
        dialog_.show();
        while (!dialog_.findChild<QWidget*>(QStringLiteral("cmdOk"))->isEnabled())
            QCoreApplication::processEvents();
    }
    /// As the user does it, painted.
    void Expand() {
        Tree().SetSelected(QStringLiteral("??\\COMPUTER-1"));
        QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
        QCoreApplication::sendEvent(&Tree(), &right);
        QCoreApplication::processEvents();
    }
    netrove::TreeView& Tree() { return *dialog_.findChild<netrove::TreeView*>(); }

private:
    WideNetwork network_;
    netrove::Settings settings_;
    netrove::ExclusionLists exclusions_;
    netrove::TroubleshootingLog log_{settings_};
    netrove::RecordedDialogs dialogs_;
    netrove::WindowYield yield_;
    netrove::frmNWDialog dialog_{{network_, settings_, exclusions_, log_, dialogs_, {}}, nullptr};
};

void Check(benchmark::State& state, Browser& browser, int nodes) {
    if (browser.Tree().Count() != nodes)
        state.SkipWithError("not all nodes are there");
}

/// The first level of so many nodes; every yield makes a pass where the second argument is 1, a
/// screen reader listens where the third is.
void BM_FirstLevel(benchmark::State& state) {
    netrove::SetYieldAlways(state.range(1) != 0);
    QAccessible::setActive(state.range(2) != 0);
    for (auto _ : state) {
        Browser browser(int(state.range(0)), 0);
        browser.Load();
        Check(state, browser, 1 + 2 * int(state.range(0)));
    }
    netrove::SetYieldAlways(false);
    QAccessible::setActive(false);
}
BENCHMARK(BM_FirstLevel)
    ->ArgNames({"nodes", "everyYield", "reader"})
    ->Args({500, 0, 0})
    ->Args({500, 1, 0})
    ->Args({500, 1, 1})
    ->Args({5000, 0, 0})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

/// A node with so many children expanded.
void BM_Expand(benchmark::State& state) {
    netrove::SetYieldAlways(state.range(1) != 0);
    for (auto _ : state) {
        state.PauseTiming();
        Browser browser(1, int(state.range(0)));
        browser.Load();
        state.ResumeTiming();
        browser.Expand();
        Check(state, browser, 2 + 2 * int(state.range(0)));
    }
    netrove::SetYieldAlways(false);
}
BENCHMARK(BM_Expand)
    ->ArgNames({"children", "everyYield"})
    ->Args({1000, 0})
    ->Args({1000, 1})
    ->Args({10000, 0})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

/// What a node costs in memory: its resource, its place in the tree and its fake child.
void BM_Memory(benchmark::State& state) {
    for (auto _ : state) {
        Browser browser(1, int(state.range(0)));
        browser.Load();
        const double before = netrove::AllocatedBytes();
        browser.Expand();
        state.counters["bytes_per_node"] =
            (netrove::AllocatedBytes() - before) / double(state.range(0));
    }
}
BENCHMARK(BM_Memory)->Arg(1000)->Arg(10000)->Arg(100000)->Iterations(1);

} // namespace

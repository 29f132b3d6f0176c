#include "AllocatedBytes.h"
#include "controls/ListView.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <benchmark/benchmark.h>

#include <array>
#include <ctime>
#include <random>

namespace {

using netrove::AllocatedBytes;
using netrove::ListView;

constexpr int FullList = 32000;
constexpr int Columns = 12;
/// How often a search lets the event loop run.
constexpr qint64 PassInterval = 5;

using RowTexts = std::array<QString, Columns>;

/// Rows as a search finds them: names of several words and a number, long folders, sort keys of
/// fixed width.
std::vector<RowTexts> MakeRows(int count) {
    const std::array<const char*, 12> words = {"Holiday", "report", "Überblick", "track",
                                               "invoice", "Backup", "minutes",   "draft",
                                               "final",   "scan",   "letter",    "Photo"};
    std::mt19937 random(1);
    const auto word = [&] { return QString::fromUtf8(words[random() % words.size()]); };
    std::vector<RowTexts> rows(static_cast<std::size_t>(count));
    for (RowTexts& row : rows) {
        const int size = int(random() % 100'000'000);
        row[0] = word() + u' ' + word() + u" (" + QString::number(random() % 1000) + u").mp3";
        row[1] = QStringLiteral("\\\\SERVER%1\\Public\\%2\\%3\\")
                     .arg(QString::number(random() % 20), word(), word());
        row[2] = QString::number(size / 1048576.0, 'f', 4);
        row[3] = QStringLiteral("%1/17/24").arg(random() % 12 + 1, 2, 10, QChar(u'0'));
        row[4] = QStringLiteral("A");
        row[5] = QStringLiteral("00:03:%1").arg(random() % 60, 2, 10, QChar(u'0'));
        row[6] = QStringLiteral("192");
        row[7] = QStringLiteral("44100");
        row[8] = QStringLiteral("%1").arg(size / 1048576.0, 15, 'f', 10, QChar(u'0'));
        row[9] = QStringLiteral("2024%1").arg(random() % 1'000'000'000, 10, 10, QChar(u'0'));
        row[10] = QStringLiteral("MP3 audio");
        row[11] = QStringLiteral("MP3");
    }
    return rows;
}

void AddRow(ListView& list, const RowTexts& texts) {
    const int row = list.Add(texts[0]);
    for (int number = 1; number < Columns; ++number)
        list.SetSubItem(row, number, texts[std::size_t(number)]);
}

/// A list of a usual size on the screen, filled with `count` rows.
class FilledList : public ListView {
public:
    explicit FilledList(const std::vector<RowTexts>& rows) {
        // The C locale's order is cheaper than that of any language.
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
        for (int column = 1; column <= Columns; ++column)
            AddColumn(QStringLiteral("Column"), column == 3 ? Qt::AlignRight : Qt::AlignLeft, 1140);
        HideColumn(9);
        HideColumn(10);
        resize(1000, 700);
        show();
        for (const RowTexts& row : rows)
            AddRow(*this, row);
        Refresh();
        QCoreApplication::processEvents();
    }
};

/// What a row costs: one by one into the list, with the event loop run as a search runs it and
/// the list painted as it grows; where the argument is 1, while a screen reader listens.
void BM_AddRows(benchmark::State& state) {
    const std::vector<RowTexts> rows = MakeRows(FullList);
    QAccessible::setActive(state.range(0) != 0);
    for (auto _ : state) {
        FilledList list({});
        if (QAccessible::isActive())
            QAccessible::queryAccessibleInterface(&list);
        QElapsedTimer sincePass;
        sincePass.start();
        for (const RowTexts& row : rows) {
            AddRow(list, row);
            if (sincePass.elapsed() >= PassInterval) {
                QCoreApplication::processEvents();
                sincePass.restart();
            }
        }
        list.Refresh();
        state.PauseTiming();
        list.Clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * FullList);
    QAccessible::setActive(false);
}
BENCHMARK(BM_AddRows)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

/// The same at the pace of a search, 5,000 rows a second, on top of as many rows as the argument
/// says: the window's share of the processor.
void BM_AddRowsAtPace(benchmark::State& state) {
    const std::vector<RowTexts> rows = MakeRows(5000);
    for (auto _ : state) {
        FilledList list(MakeRows(int(state.range(0))));
        QElapsedTimer clock;
        clock.start();
        std::clock_t used = 0;
        for (std::size_t added = 0; added < rows.size();) {
            const std::clock_t before = std::clock();
            for (; added < rows.size() && qint64(added) <= clock.elapsed() * 5; ++added)
                AddRow(list, rows[added]);
            QCoreApplication::processEvents();
            used += std::clock() - before;
            QThread::msleep(PassInterval);
        }
        state.counters["cpu_us_per_row"] =
            double(used) * 1e6 / CLOCKS_PER_SEC / double(rows.size());
    }
}
BENCHMARK(BM_AddRowsAtPace)
    ->Arg(0)
    ->Arg(FullList - 5000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

/// One sort with the screen brought up to date; the argument is the sort key. All rows are
/// selected, or every second one.
void BM_Sort(benchmark::State& state) {
    FilledList list(MakeRows(FullList));
    for (int row = 1; row <= FullList; row += 2)
        list.SetSelected(row, state.range(1) != 0);
    for (auto _ : state) {
        list.SetSorted(true);
        list.SetSortKey(int(state.range(0)));
        list.SetSortOrder(list.SortOrder() == Qt::AscendingOrder ? Qt::DescendingOrder
                                                                 : Qt::AscendingOrder);
        list.SetSorted(false);
        list.Refresh();
    }
}
BENCHMARK(BM_Sort)
    ->ArgNames({"key", "selected"})
    ->Args({0, 0})
    ->Args({8, 0})
    ->Args({0, 1})
    ->Unit(benchmark::kMillisecond);

void BM_SelectAll(benchmark::State& state) {
    FilledList list(MakeRows(FullList));
    for (auto _ : state) {
        list.selectAll();
        list.Refresh();
        list.clearSelection();
    }
}
BENCHMARK(BM_SelectAll)->Unit(benchmark::kMillisecond);

/// A page down, painted; with every second row selected where the argument is 1.
void BM_ScrollPage(benchmark::State& state) {
    FilledList list(MakeRows(FullList));
    for (int row = 1; row <= FullList; row += 2)
        list.SetSelected(row, state.range(0) != 0);
    list.Flush();
    QScrollBar& bar = *list.verticalScrollBar();
    for (auto _ : state) {
        bar.setValue(bar.value() < bar.maximum() ? bar.value() + bar.pageStep() : 0);
        list.viewport()->repaint();
    }
}
BENCHMARK(BM_ScrollPage)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// The selected rows removed one by one, as the user's Delete does.
void BM_RemoveSelected(benchmark::State& state) {
    const std::vector<RowTexts> rows = MakeRows(FullList);
    for (auto _ : state) {
        state.PauseTiming();
        FilledList list(rows);
        for (int row = 1; row <= FullList; row += 2)
            list.SetSelected(row, true);
        list.Refresh();
        state.ResumeTiming();
        for (int row = list.NextSelected(1); row != 0; row = list.NextSelected(row))
            list.Remove(row);
        list.Refresh();
    }
}
BENCHMARK(BM_RemoveSelected)->Unit(benchmark::kMillisecond)->Iterations(3);

/// Memory of a full list, its texts included.
void BM_Memory(benchmark::State& state) {
    for (auto _ : state) {
        const double before = AllocatedBytes();
        FilledList list({});
        for (int number = 0; number < 32; ++number) {
            for (const RowTexts& row : MakeRows(FullList / 32))
                AddRow(list, row);
        }
        list.Refresh();
        state.counters["megabytes"] = (AllocatedBytes() - before) / 1048576;
    }
}
BENCHMARK(BM_Memory)->Iterations(1);

} // namespace

#include "fakes/DesktopFakes.h"
#include "fakes/FakeTray.h"
#include "mainwindow/frmNetrove.h"
#include "platform/desktop/DesktopFileTypes.h"
#include "platform/desktop/WindowYield.h"
#include "platform/network/Network.h"
#include "platform/network/SmbProvider.h"
#include "smb/FaultyProxy.h"
#include "smb/SambaServer.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace {

using namespace netrove;

constexpr int SavedRows = 32000;
constexpr int LoadedFolders = 250;
constexpr int FilesInFolder = 20;
constexpr std::chrono::milliseconds RoundTrip{10};

QString FileName(int number) {
    return QStringLiteral("Some Artist - Song Number %1.mp3").arg(number);
}

QString FolderName(int number) {
    return QStringLiteral("Album %1").arg(number);
}

/// A server behind a slow line; its share has folders of files.
struct SlowServer {
    SlowServer() {
        for (int folder = 0; folder < LoadedFolders; ++folder) {
            for (int file = 0; file < FilesInFolder; ++file)
                samba.AddFile(QStringLiteral("public/") + FolderName(folder) + u'/' +
                              FileName(file));
        }
        proxy.Delay(RoundTrip);
    }

    SambaServer samba;
    FaultyProxy proxy{samba.Port()};
};

std::unique_ptr<Network> NetworkBehind(quint16 port) {
    std::vector<std::unique_ptr<NetworkProvider>> providers;
    providers.push_back(
        std::make_unique<SmbProvider>(QStringLiteral("LAN"),
                                      std::vector<SmbHost>{{.name = QStringLiteral("FILER"),
                                                            .workgroup = QStringLiteral("HOME"),
                                                            .address = QStringLiteral("127.0.0.1"),
                                                            .port = port}},
                                      SambaServer::Helper()));
    return std::make_unique<Network>(std::move(providers));
}

/// The real window, shown.
struct Window {
    explicit Window(Network& network, const QString& folder)
        : window({.network = network,
                  .files = network,
                  .dialogs = dialogs,
                  .shell = shell,
                  .fileTypes = fileTypes,
                  .systemIcon = [this](int index) { return fileTypes.Icon(index); },
                  .system = system,
                  .tray = tray,
                  .applicationFolder = folder,
                  .webAddress = QString(),
                  .ahead = &network}) {
        window.Form_Load();
        QApplication::processEvents();
    }

    void Use(const char* item, const QString& file) {
        dialogs.Answer = MessageAnswer::Yes;
        dialogs.Files = {file};
        window.findChild<QAction*>(QString::fromLatin1(item))->trigger();
    }
    ListView& Results() { return *window.findChild<ListView*>(QStringLiteral("lvwResults")); }

    RecordedDialogs dialogs;
    RecordedShell shell;
    DesktopFileTypes fileTypes;
    TestSystem system;
    FakeTray tray;
    WindowYield yield;
    frmNetrove window;
};

void FillRows(ListView& list) {
    for (int number = 0; number < SavedRows; ++number) {
        const int row = list.Add(FileName(number));
        list.SetSubItem(row, 1, QStringLiteral("\\\\FILER\\PUBLIC\\") + FolderName(number) + u'\\');
        for (int column = 2; column < list.ColumnCount(); ++column)
            list.SetSubItem(row, column, QStringLiteral("0004.1852000000"));
    }
}

/// The longest time between two ticks of a timer that is always due: how long the window stood
/// still.
class Standstill {
public:
    Standstill() {
        clock_.start();
        timer_.callOnTimeout([this] { longest_ = std::max(longest_, clock_.restart()); });
        timer_.start(0);
    }
    [[nodiscard]] double Milliseconds() {
        return static_cast<double>(std::max(longest_, clock_.elapsed()));
    }

private:
    QTimer timer_;
    QElapsedTimer clock_;
    qint64 longest_ = 0;
};

/// All rows are queued, then the queue is cleared.
void QueueAndClear(benchmark::State& state) {
    const QTemporaryDir folder;
    const auto network = NetworkBehind(1);
    Window window(*network, folder.path());
    FillRows(window.Results());
    window.Results().selectAll();
    auto& queue = *window.window.findChild<ListView*>(QStringLiteral("lvwDownloads"));
    double longest = 0;
    for (auto _ : state) {
        Standstill standstill;
        Q_EMIT window.Results().EnterPressed();
        QApplication::processEvents();
        if (queue.Count() != SavedRows)
            state.SkipWithError("not all rows were queued");
        window.window.findChild<QAction*>(QStringLiteral("ClearAllMnu"))->trigger();
        QApplication::processEvents();
        longest = std::max(longest, standstill.Milliseconds());
    }
    state.counters["standstill_ms"] = longest;
}
BENCHMARK(QueueAndClear)->Unit(benchmark::kMillisecond)->UseRealTime();

/// From the answer to the file chooser to the box that says that it is done.
void SaveRows(benchmark::State& state) {
    const QTemporaryDir folder;
    const auto network = NetworkBehind(1);
    Window window(*network, folder.path());
    FillRows(window.Results());
    for (auto _ : state)
        window.Use("mnuSaveResFile", folder.filePath(QStringLiteral("saved.nrr")));
    state.SetItemsProcessed(state.iterations() * SavedRows);
}
BENCHMARK(SaveRows)->Unit(benchmark::kMillisecond)->UseRealTime();

QString PathOf(int folder, int file) {
    return QStringLiteral("\\\\FILER\\PUBLIC\\") + FolderName(folder) + u'\\' + FileName(file);
}

/// 5,000 lines, whose files lie behind the slow line, into the window. The lines stand in the order
/// of the folders, as a search gives them, or in that of the names.
void LoadRows(benchmark::State& state) {
    const bool isByName = state.range(0) == 1;
    SlowServer server;
    const QTemporaryDir folder;
    QByteArray lines = "//Generated by Netrove//\r\n";
    for (int line = 0; line < LoadedFolders * FilesInFolder; ++line) {
        const int file = isByName ? line / LoadedFolders : line % FilesInFolder;
        const int album = isByName ? line % LoadedFolders : line / FilesInFolder;
        lines += '"' + FileName(file).toUtf8() + "\",\"\\\\FILER\\PUBLIC\\" +
                 FolderName(album).toUtf8() + "\\\"\r\n";
    }
    QFile list(folder.filePath(QStringLiteral("list.nrr")));
    if (!list.open(QIODevice::WriteOnly) || list.write(lines) != lines.size())
        qFatal("The list can't be written.");
    list.close();
    for (auto _ : state) {
        const auto network = NetworkBehind(server.proxy.Port());
        Window window(*network, folder.path());
        window.Use("mnuLoadResFile", list.fileName());
        if (window.Results().Count() != LoadedFolders * FilesInFolder)
            state.SkipWithError("not all files were loaded");
    }
}
BENCHMARK(LoadRows)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

/// What the same takes when each file is asked for by itself: a tenth of the files.
void AskOneAfterAnother(benchmark::State& state) {
    SlowServer server;
    for (auto _ : state) {
        const auto network = NetworkBehind(server.proxy.Port());
        for (int folder = 0; folder < LoadedFolders / 10; ++folder) {
            for (int file = 0; file < FilesInFolder; ++file)
                benchmark::DoNotOptimize(network->Attributes(PathOf(folder, file)));
        }
    }
}
BENCHMARK(AskOneAfterAnother)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}

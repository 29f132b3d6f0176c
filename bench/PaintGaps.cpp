#include "BenchWindow.h"
#include "desktop/DesktopApplication.h"
#include "redirector/OpenNetwork.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t Printed = 5;

/// Times in milliseconds since the search began.
struct Gap {
    qint64 begin = 0;
    qint64 end = 0;
    QString caption; ///< what the window said when the gap was over

    [[nodiscard]] qint64 Length() const { return end - begin; }
};

/// A small part of the window that notes when it is painted.
class PaintedSpot : public QWidget {
public:
    PaintedSpot(QWidget& window, const QLabel& caption) : QWidget(&window), caption_(caption) {
        resize(4, 4);
        raise();
        show();
        clock_.start();
    }

    /// Asks for a paint, unless one has been asked for. For any thread.
    void Ask() {
        if (!asked_.exchange(true))
            QMetaObject::invokeMethod(
                this, [this] { update(); }, Qt::QueuedConnection);
    }

    void Restart() {
        clock_.start();
        last_ = 0;
        gaps_.clear();
        paints_ = 0;
    }

    /// The end of the last gap.
    void Stop() { Note(); }

    [[nodiscard]] std::size_t Paints() const { return paints_; }
    [[nodiscard]] const std::vector<Gap>& Longest() const { return gaps_; }
    [[nodiscard]] qint64 Elapsed() const { return clock_.elapsed(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        Note();
        ++paints_;
        asked_ = false;
    }

private:
    void Note() {
        const qint64 now = clock_.elapsed();
        const auto isLonger = [](const Gap& one, const Gap& other) {
            return one.Length() > other.Length();
        };
        if (gaps_.size() < Printed || now - last_ > gaps_.back().Length()) {
            gaps_.push_back({.begin = last_, .end = now, .caption = caption_.text()});
            std::sort(gaps_.begin(), gaps_.end(), isLonger);
            gaps_.resize(std::min(gaps_.size(), Printed));
        }
        last_ = now;
    }

    const QLabel& caption_;
    QElapsedTimer clock_;
    qint64 last_ = 0;
    std::vector<Gap> gaps_;
    std::size_t paints_ = 0;
    std::atomic<bool> asked_ = false;
};

/// Asks for paints from a thread of its own, as timers don't fire while the program waits.
class Asking {
public:
    explicit Asking(PaintedSpot& spot)
        : thread_([this, &spot] {
            while (!ended_) {
                spot.Ask();
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            }
        }) {}
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;
    ~Asking() {
        ended_ = true;
        thread_.join();
    }

private:
    std::atomic<bool> ended_ = false;
    std::thread thread_;
};

void Print(const PaintedSpot& spot, int rows) {
    std::printf("%d rows in %.2f s, painted %zu times\n", rows,
                static_cast<double>(spot.Elapsed()) / 1000, spot.Paints());
    for (const Gap& gap : spot.Longest())
        std::printf("%lld ms without a paint, at %.2f s: %s\n",
                    static_cast<long long>(gap.Length()), static_cast<double>(gap.begin) / 1000,
                    qUtf8Printable(gap.caption));
}

} // namespace

/// Searches the network of the folder's network.ini for all MP3 files in the real window, and
/// prints the longest times in which a part of it that was to be painted wasn't.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: paint_gaps FOLDER\n", stderr);
        return 2;
    }
    const netrove::DesktopApplication application(argc, argv);
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const netrove::OpenedNetwork opened = netrove::OpenNetwork(folder);
    netrove::BenchWindow window(*opened.network, folder);
    window.Find<QComboBox>("LstSearchFor").setEditText(QStringLiteral("*.mp3"));
    PaintedSpot spot(window.Window(), window.Find<QLabel>("RetFileLbl"));
    QApplication::processEvents();
    {
        const Asking asking(spot);
        spot.Restart();
        window.Find<QPushButton>("cmdStartSearch").click();
        spot.Stop();
    }
    for (const QString& box : window.Dialogs().Shown)
        std::fprintf(stderr, "%s\n", qUtf8Printable(box));
    Print(spot, window.Results().Count());
    return 0;
}

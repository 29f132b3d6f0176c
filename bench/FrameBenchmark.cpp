#include "controls/Color.h"
#include "skins/frame/FrameLook.h"
#include "skins/frame/PaintedFrame.h"
#include "skins/frame/PaintedSkinFrame.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

#include <random>

namespace {

using namespace netrove;

constexpr QSize WindowSize(1500, 1000);
constexpr int Rows = 100;
constexpr int Columns = 8;

QPixmap Noise(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    std::mt19937 random(1);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, random() | 0xFF000000);
    }
    return QPixmap::fromImage(picture);
}

/// As large as the largest skin has its pictures.
struct Skin {
    Skin() {
        configuration.TitlePicture = Noise(640, 80);
        configuration.FramePicture = Noise(182, 52);
        configuration.TitleMetric3 = 90;
        configuration.TitleMetric4 = 140;
        configuration.TitleMetric5 = 240;
        configuration.TitleMetric6 = 400;
        configuration.FrameFlag1 = -1;
        configuration.BarColor4 = 0x7A3B21;
        configuration.Colorize = true;
    }

    /// As a slider does.
    void NextStep() {
        configuration.Hue += 0.01F;
        if (configuration.Hue > 5)
            configuration.Hue = -1;
        configuration.Saturation = 0.7F;
    }

    PaintedSkinFrame painter;
    SkinConfiguration configuration{painter};
};

/// A window that is full of controls.
struct Window : QMainWindow {
    Window() {
        menuBar()->addMenu(QStringLiteral("&File"));
        auto* list = new QTreeWidget;
        list->setColumnCount(Columns);
        for (int row = 0; row < Rows; ++row) {
            QStringList texts;
            for (int column = 0; column < Columns; ++column)
                texts.append(QStringLiteral("Row %1, column %2").arg(row).arg(column));
            list->addTopLevelItem(new QTreeWidgetItem(texts));
        }
        setCentralWidget(list);
        statusBar()->showMessage(QStringLiteral("Idle"));
        resize(WindowSize);
        show();
        QApplication::processEvents();
    }
};

void RepaintAll(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>())
        widget->update();
    window.repaint();
}

/// Colours and pictures of one step of a slider.
void TransformSkin(benchmark::State& state) {
    Skin skin;
    for (auto step : state) {
        skin.NextStep();
        benchmark::DoNotOptimize(FrameLook(skin.configuration));
    }
}
BENCHMARK(TransformSkin)->Unit(benchmark::kMillisecond);

/// One step of a slider up to the painted window: frame, menu bar and all that is in it.
void RepaintWindow(benchmark::State& state) {
    Skin skin;
    Window window;
    PaintedFrame frame;
    frame.Attach(window, skin.configuration);
    QApplication::processEvents();
    for (auto step : state) {
        skin.NextStep();
        frame.Attach(window, skin.configuration);
        QPalette palette = window.palette();
        palette.setColor(QPalette::Window, ToColor(frame.ResolvedBackColor()));
        window.setPalette(palette);
        RepaintAll(window);
    }
}
BENCHMARK(RepaintWindow)->Unit(benchmark::kMillisecond);

/// The same without a change: what painting costs by itself.
void RepaintUnchanged(benchmark::State& state) {
    Skin skin;
    Window window;
    PaintedFrame frame;
    frame.Attach(window, skin.configuration);
    QApplication::processEvents();
    for (auto step : state)
        RepaintAll(window);
}
BENCHMARK(RepaintUnchanged)->Unit(benchmark::kMillisecond);

/// Both windows of the sample in the dialog.
void PaintSample(benchmark::State& state) {
    Skin skin;
    const Window window;
    QImage picture(300, 200, QImage::Format_RGB32);
    for (auto step : state) {
        skin.NextStep();
        QPainter painter(&picture);
        skin.configuration.DrawSample(window, painter, 4, 4, 260, 160, false);
        skin.configuration.DrawSample(window, painter, 32, 32, 260, 160, true);
    }
}
BENCHMARK(PaintSample)->Unit(benchmark::kMillisecond);

} // namespace

#pragma once

#include "skins/frame/PaintedSkinFrame.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>

#include <array>
#include <span>

namespace netrove {

/// A skin of plain colours: each piece of its pictures can be told by its own.
class PlainSkin {
public:
    static constexpr int RowHeight = 40; ///< more than a line of text needs
    static constexpr int Border = 5;
    // Left cap, tile, divider, filler, right cap.
    static constexpr std::array Pieces{Qt::red, Qt::green, Qt::blue, Qt::cyan, Qt::yellow};
    // Face, face under the mouse, face pressed, and the four glyphs.
    static constexpr std::array Cells{Qt::darkRed,   Qt::darkGreen, Qt::darkBlue,  Qt::white,
                                      Qt::lightGray, Qt::gray,      Qt::darkYellow};

    PlainSkin() {
        configuration.TitlePicture = Picture(Pieces, 20, RowHeight);
        configuration.FramePicture = Picture(Cells, 24, 24);
        configuration.TitleMetric1 = 2;
        configuration.TitleMetric2 = 4;
        configuration.TitleMetric3 = 20;
        configuration.TitleMetric4 = 40;
        configuration.TitleMetric5 = 60;
        configuration.TitleMetric6 = 80;
        configuration.TitleColor2 = 0x808080;
        configuration.BarColor1 = 0x0000C0;
        configuration.BarColor2 = 0x00FFFF;
        configuration.BarColor3 = 0xFF0000;
        configuration.BarColor4 = 0xC0E0A0;
        configuration.FrameMetric1 = Border;
        configuration.FrameMetric4 = 6;
        configuration.FrameFlag1 = -1;
    }

    PaintedSkinFrame painter;
    SkinConfiguration configuration{painter};

private:
    /// The second row is darker.
    static QPixmap Picture(std::span<const Qt::GlobalColor> colors, int width, int height) {
        QPixmap picture(int(colors.size()) * width, 2 * height);
        QPainter painter(&picture);
        int x = 0;
        for (const QColor color : colors) {
            painter.fillRect(x, 0, width, height, color);
            painter.fillRect(x, height, width, height, color.darker());
            x += width;
        }
        return picture;
    }
};

/// A window with a menu bar and something in it.
class PlainWindow : public QMainWindow {
public:
    PlainWindow() {
        menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("Any"));
        setCentralWidget(new QWidget);
        setGeometry(60, 60, 400, 300);
    }
};

} // namespace netrove

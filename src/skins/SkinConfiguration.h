#pragma once

#include <QFont>
#include <QPainter>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace netrove {

class SkinFrame;

/// What a skin looks like (the numbers, colours and pictures that its frame is painted from), and
/// the user's adjustments. The main window owns the current one, other windows refer to it. Colours
/// have red in the low byte. A flag is -1 when set.
class SkinConfiguration {
public:
    /// `frame` does the painting, and outlives the configuration.
    explicit SkinConfiguration(SkinFrame& frame) : frame_(&frame) {}

    qint32 TitleMetric1 = 0;
    qint32 TitleMetric2 = 0;
    qint32 TitleMetric3 = 0;
    qint32 TitleMetric4 = 0;
    qint32 TitleMetric5 = 0;
    qint32 TitleMetric6 = 0;
    QPixmap TitlePicture; ///< the wide strip
    QPixmap FramePicture; ///< the strip of seven cells
    quint32 TitleColor1 = 0;
    quint32 TitleColor2 = 0;
    QFont TitleFont;
    quint32 BarColor1 = 0;
    quint32 BarColor2 = 0;
    quint32 BarColor3 = 0;
    quint32 BarColor4 = 0;
    QFont BarFont;

    // Only some skins set these.
    qint32 FrameFlag1 = 0;
    qint32 FrameInset1 = 0; ///< 1 and 2 add to a dialog's client width, 3 and 4 to its height
    qint32 FrameInset2 = 0;
    qint32 FrameInset3 = 0;
    qint32 FrameInset4 = 0;
    qint32 FrameMetric1 = 0;
    qint32 FrameFlag2 = 0;
    qint32 FrameFlag3 = 0;
    qint32 FrameMetric2 = 0;
    qint32 FrameMetric3 = 0;
    qint32 FrameMetric4 = 0;
    qint32 FrameMetric5 = 0;

    QString Name;

    // The user's adjustments.
    bool Colorize = false;
    float Hue = 0;        ///< -1 to 5
    float Saturation = 0; ///< 0 to 1
    bool AdjustRGB = false;
    float PercentRed = 0; ///< all three: -1 to 1
    float PercentBlue = 0;
    float PercentGreen = 0;

    /// Paints a miniature of the skinned window into the rectangle, in pixels.
    void DrawSample(const QWidget& window, QPainter& painter, int x, int y, int cx, int cy,
                    bool active) const;

    /// Sets the members from the text of a skin file and its two pictures.
    void LoadXML(const QString& text, const QPixmap& firstPicture, const QPixmap& secondPicture);

private:
    SkinFrame* frame_;
};

} // namespace netrove

#include "skins/frame/FrameMetrics.h"

#include "skins/SkinConfiguration.h"

#include <QFontMetrics>

#include <algorithm>

namespace netrove {
namespace {

constexpr int CellCount = 7;
constexpr int DefaultBorder = 4;
constexpr int DefaultGlyph = 12;
constexpr int DefaultButtonsEnd = 8;
constexpr int SmallestButtonWidth = 18;
constexpr int SmallestButtonHeight = 16;
/// Space kept free above and below a button.
constexpr int AroundButton = 2;
constexpr int AroundCaption = 6;
constexpr int ButtonGap = 2;
constexpr int SmallestTitle = SmallestButtonHeight + 2 * AroundButton;
/// The largest values that any skin gets, wherever it comes from.
constexpr int LargestTitle = 200;
constexpr int LargestBorder = 40;
constexpr int LargestDistance = 400;

QSize LogicalSize(const QPixmap& picture) {
    return picture.deviceIndependentSize().toSize();
}

int OrDefault(int value, int normal) {
    return value > 0 ? value : normal;
}

} // namespace

FrameMetrics::FrameMetrics(const SkinConfiguration& configuration) {
    const QSize title = LogicalSize(configuration.TitlePicture);
    const int line = QFontMetrics(configuration.TitleFont).height() + AroundCaption;
    titleHeight = std::clamp(std::max({title.height() / 2, line, configuration.FrameMetric5}),
                             SmallestTitle, LargestTitle);
    border = std::min(OrDefault(configuration.FrameMetric1, DefaultBorder), LargestBorder);

    const QSize cells = LogicalSize(configuration.FramePicture);
    const int cellHeight = configuration.FrameFlag1 != 0 ? cells.height() / 2 : cells.height();
    button.setWidth(std::clamp(cells.width() / CellCount, SmallestButtonWidth, LargestDistance));
    button.setHeight(
        std::max(std::min(titleHeight - 2 * AroundButton, cellHeight), SmallestButtonHeight));
    glyph = std::min(
        {OrDefault(configuration.FrameMetric4, DefaultGlyph), button.width(), button.height()});
    buttonsEnd = configuration.FrameMetric2 < 0
                     ? -std::max(configuration.FrameMetric2, -LargestDistance)
                     : DefaultButtonsEnd;

    iconLeft = std::clamp(configuration.TitleMetric1, 0, LargestDistance);
    captionGap = std::clamp(configuration.TitleMetric2, 0, LargestDistance);
    const int radius = std::clamp(configuration.FrameMetric3, 0, titleHeight / 2);
    upperRadius = configuration.FrameFlag2 != 0 ? radius : 0;
    lowerRadius = configuration.FrameFlag3 != 0 ? radius : 0;

    const int leftEnd = std::clamp(configuration.TitleMetric3, 0, title.width());
    const int tileEnd = std::clamp(configuration.TitleMetric4, leftEnd, title.width());
    const int dividerEnd = std::clamp(configuration.TitleMetric5, tileEnd, title.width());
    const int fillerEnd = std::clamp(configuration.TitleMetric6, dividerEnd, title.width());
    leftCap = leftEnd;
    tile = tileEnd - leftEnd;
    divider = dividerEnd - tileEnd;
    filler = fillerEnd - dividerEnd;
    rightCap = title.width() - fillerEnd;
}

std::vector<QRect> FrameMetrics::ButtonRects(int barWidth, int count) const {
    std::vector<QRect> rects;
    const int top = (titleHeight - button.height()) / 2;
    int right = barWidth - buttonsEnd;
    for (int number = 0; number < count; ++number) {
        rects.emplace_back(QPoint(right - button.width(), top), button);
        right -= button.width() + ButtonGap;
    }
    return rects;
}

} // namespace netrove

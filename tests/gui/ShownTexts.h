#pragma once

#include <QImage>
#include <QRect>
#include <QWidget>

#include <vector>

namespace netrove {

/// A place of a window where a text is painted.
struct ShownText {
    QString name;  ///< the control's, or its class
    QRect area;    ///< of the text alone, in the window's pixels
    bool disabled; ///< switched off
    bool desktop;  ///< shows the desktop's own colours for what is switched off
};

/// The places of all texts that the window shows now.
[[nodiscard]] std::vector<ShownText> ShownTexts(QWidget& window);

/// The contrast of what stands out most in the area against the colour that fills it.
[[nodiscard]] double PaintedContrast(const QImage& picture, const QRect& area);

} // namespace netrove

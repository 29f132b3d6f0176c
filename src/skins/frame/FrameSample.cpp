#include "skins/frame/FrameSample.h"

#include <QMainWindow>
#include <QMenuBar>

#include <cmath>

namespace netrove {
namespace {

constexpr int MenuPadding = 6;
constexpr int MenuVerticalPadding = 3;
constexpr int TextPadding = 8;
/// The menu that is shown highlighted.
constexpr qsizetype HighlightedMenu = 1;

QString WithoutMnemonic(QString text) {
    return text.remove(u'&');
}

} // namespace

/// Paints on a picture of its own first, so that the rounded corners are smooth.
void FrameSample::Paint(QPainter& painter, const QRect& area) const {
    if (area.isEmpty())
        return;
    const qreal ratio = painter.device()->devicePixelRatioF();
    QImage image((QSizeF(area.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return;
    image.setDevicePixelRatio(ratio);
    image.fill(look_.colors.back);
    const QRect window(QPoint(), area.size());
    const FrameMetrics& metrics = look_.metrics;
    const QRect client =
        window.adjusted(metrics.border, metrics.titleHeight, -metrics.border, -metrics.border);
    {
        QPainter inner(&image);
        PaintTitle(inner, QRect(0, 0, window.width(), metrics.titleHeight));
        inner.setClipRect(client);
        const int menuBottom = PaintMenuBar(inner, client);
        PaintText(inner, QRect(QPoint(client.left(), menuBottom), client.bottomRight()));
        inner.setClipping(false);
        FramePainter(look_, inner, active_).PaintBorder(window);
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.topLeft());
    painter.setPen(Qt::NoPen);
    painter.setBrush(image);
    painter.drawPath(FramePainter::Outline(metrics, QRectF(window)));
    painter.restore();
}

void FrameSample::PaintTitle(QPainter& painter, const QRect& bar) const {
    FramePainter frame(look_, painter, active_);
    const FrameCell glyphs[] = {FrameCell::Close, FrameCell::Maximize, FrameCell::Minimize};
    const std::vector<QRect> buttons =
        look_.metrics.ButtonRects(bar.width(), static_cast<int>(std::size(glyphs)));
    frame.PaintTitle(bar, window_.windowIcon(), window_.windowTitle(), buttons.back().left());
    for (std::size_t index = 0; index < buttons.size(); ++index)
        frame.PaintButton(buttons[index], FrameCell::Face, glyphs[index]);
}

QStringList FrameSample::Menus() const {
    QStringList menus;
    const auto* mainWindow = qobject_cast<const QMainWindow*>(&window_);
    if (mainWindow && mainWindow->menuWidget()) {
        for (const QAction* menu : mainWindow->menuWidget()->actions()) {
            if (menu->isVisible())
                menus.append(WithoutMnemonic(menu->text()));
        }
    }
    return menus;
}

/// Returns where the menu bar ends.
int FrameSample::PaintMenuBar(QPainter& painter, const QRect& client) const {
    painter.setFont(look_.barFont);
    const QFontMetrics metrics(look_.barFont);
    QRect entry(client.left(), client.top(), 0, metrics.height() + 2 * MenuVerticalPadding);
    const QStringList menus = Menus();
    for (qsizetype index = 0; index < menus.size(); ++index) {
        entry.setWidth(metrics.horizontalAdvance(menus[index]) + 2 * MenuPadding);
        const bool highlighted = index == HighlightedMenu;
        if (highlighted)
            painter.fillRect(entry, look_.colors.highlightBack);
        painter.setPen(highlighted ? look_.colors.highlightText : look_.colors.text);
        painter.drawText(entry, Qt::AlignCenter, menus[index]);
        entry.moveLeft(entry.right() + 1);
    }
    return entry.bottom() + 1;
}

void FrameSample::PaintText(QPainter& painter, const QRect& client) const {
    painter.setFont(look_.barFont);
    painter.setPen(look_.colors.text);
    painter.drawText(client.adjusted(TextPadding, TextPadding, -TextPadding, -TextPadding),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                     tr("This is how text looks in a window of this skin."));
}

} // namespace netrove

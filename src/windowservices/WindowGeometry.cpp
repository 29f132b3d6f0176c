#include "windowservices/WindowGeometry.h"

#include <QCursor>
#include <QFontMetrics>
#include <QLayout>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace netrove {

void CentreWindow(const QWidget& parent, QWidget& child) {
    const QRect outer = parent.frameGeometry();
    const QSize size = child.frameGeometry().size();
    child.move(outer.left() + (outer.width() - size.width()) / 2,
               outer.top() + (outer.height() - size.height()) / 2);
}

void SetClientSize(QWidget& window, int width, int height) {
    const QSize frame = window.size() - window.contentsRect().size();
    window.resize(frame + QSize(ToPixels(width), ToPixels(height)));
}

void SetFixedClientSize(QWidget& window, int width, int height) {
    window.setMinimumSize(0, 0);
    window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    SetClientSize(window, width, height);
    QSize size = window.size();
    if (QLayout* layout = window.layout()) {
        layout->activate();
        size = size.expandedTo(layout->totalMinimumSize());
        if (layout->hasHeightForWidth())
            size = size.expandedTo(QSize(0, layout->totalMinimumHeightForWidth(size.width())));
    }
    window.setFixedSize(size);
}

void FixSizeAroundContents(QWidget& window) {
    const QLayout& layout = *window.layout();
    QSize size = window.size().expandedTo(layout.totalSizeHint());
    if (layout.hasHeightForWidth())
        size.setHeight(std::max(window.height(), layout.totalHeightForWidth(size.width())));
    window.setFixedSize(size);
}

QMargins DesktopFrame(const QWidget& window) {
    const QWindow* handle = window.windowHandle();
    const QMargins frame = handle != nullptr ? handle->frameMargins() : QMargins();
    const bool isKnown = std::min({frame.left(), frame.top(), frame.right(), frame.bottom()}) >= 0;
    return isKnown ? frame : QMargins();
}

int CursorX() {
    return QCursor::pos().x();
}

int CursorY() {
    return QCursor::pos().y();
}

std::function<int(const QString&)> TextWidthIn(const QWidget& widget) {
    return [metrics = QFontMetricsF(widget.fontMetrics())](const QString& text) {
        return static_cast<int>(std::ceil(metrics.horizontalAdvance(text)));
    };
}

} // namespace netrove

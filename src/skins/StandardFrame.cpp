#include "skins/StandardFrame.h"

#include <QGuiApplication>
#include <QPalette>

namespace netrove {

quint32 StandardFrame::ResolvedBackColor() const {
    return PaletteColor(QPalette::Window);
}

quint32 StandardFrame::ResolvedForeColor() const {
    return PaletteColor(QPalette::WindowText);
}

void StandardFrame::Attach(QWidget& window, const SkinConfiguration& configuration) {
    static_cast<void>(configuration);
    window_ = &window;
}

quint32 StandardFrame::PaletteColor(QPalette::ColorRole role) const {
    const QPalette palette = window_ ? window_->palette() : QGuiApplication::palette();
    const QColor color = palette.color(role);
    return static_cast<quint32>(color.red() | color.green() << 8 | color.blue() << 16);
}

} // namespace netrove

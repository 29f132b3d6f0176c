#pragma once

#include "skins/frame/FramePainter.h"

#include <QCoreApplication>
#include <QWidget>

namespace netrove {

/// Paints a small window in the frame of a skin, as a sample of it.
class FrameSample {
    Q_DECLARE_TR_FUNCTIONS(FrameSample)

public:
    /// Shows the icon, title and menus of the window.
    FrameSample(const FrameLook& look, const QWidget& window, bool active)
        : look_(look), window_(window), active_(active) {}

    void Paint(QPainter& painter, const QRect& area) const;

private:
    void PaintTitle(QPainter& painter, const QRect& bar) const;
    [[nodiscard]] int PaintMenuBar(QPainter& painter, const QRect& client) const;
    void PaintText(QPainter& painter, const QRect& client) const;
    [[nodiscard]] QStringList Menus() const;

    const FrameLook& look_;
    const QWidget& window_;
    bool active_;
};

} // namespace netrove

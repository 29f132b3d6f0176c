#pragma once

#include "skins/frame/FrameLook.h"

#include <QMenuBar>
#include <QPointer>

#include <optional>

namespace netrove {

/// The font and colours of a window's menu bar: gives the menu bar those of a skin, and takes them
/// back.
class MenuBarLook {
public:
    /// Does nothing where the window has no menu bar.
    void Put(QWidget& window, const FrameLook& look);
    void TakeBack();

private:
    /// The font and colours that the bar had been given before; empty where it followed the
    /// desktop.
    struct Own {
        std::optional<QPalette> palette;
        std::optional<QFont> font;
        bool fillsBackground;
    };

    QPointer<QMenuBar> bar_;
    Own own_;
};

} // namespace netrove

#include "skins/frame/MenuBarLook.h"

#include "controls/Color.h"

#include <QMainWindow>

namespace netrove {
namespace {

constexpr double DisabledShare = 0.5;

QPalette PaletteOf(const FrameColors& colors) {
    QPalette palette;
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Button, QPalette::Base})
        palette.setColor(role, colors.back);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        palette.setColor(role, colors.text);
        palette.setColor(QPalette::Disabled, role, Mixed(colors.text, colors.back, DisabledShare));
    }
    palette.setColor(QPalette::Highlight, colors.highlightBack);
    palette.setColor(QPalette::HighlightedText, colors.highlightText);
    return palette;
}

} // namespace

void MenuBarLook::Put(QWidget& window, const FrameLook& look) {
    auto* mainWindow = qobject_cast<QMainWindow*>(&window);
    auto* bar = mainWindow ? qobject_cast<QMenuBar*>(mainWindow->menuWidget()) : nullptr;
    if (!bar)
        return;
    if (bar_ != bar) {
        bar_ = bar;
        own_ = Own{};
        if (bar->testAttribute(Qt::WA_SetPalette))
            own_.palette = bar->palette();
        if (bar->testAttribute(Qt::WA_SetFont))
            own_.font = bar->font();
        own_.fillsBackground = bar->autoFillBackground();
    }
    bar->setPalette(PaletteOf(look.colors));
    bar->setFont(look.barFont);
    bar->setAutoFillBackground(true);
}

void MenuBarLook::TakeBack() {
    if (!bar_)
        return;
    bar_->setPalette(own_.palette.value_or(QPalette()));
    bar_->setFont(own_.font.value_or(QFont()));
    bar_->setAutoFillBackground(own_.fillsBackground);
    bar_.clear();
}

} // namespace netrove

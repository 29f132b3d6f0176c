#include "storage/WindowPlacement.h"

#include "controls/Twips.h"
#include "runtime/SourceText.h"
#include "windowservices/WindowGeometry.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QResizeEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <utility>
#include <vector>

namespace netrove {
namespace {

WindowPlace InTwips(const QRect& pixels) {
    return {.left = ToTwips(pixels.x()),
            .top = ToTwips(pixels.y()),
            .width = ToTwips(pixels.width()),
            .height = ToTwips(pixels.height())};
}

/// The length of what two lines, each given by its start and length, have in common.
qint64 Overlap(qint64 start, qint64 length, qint64 otherStart, qint64 otherLength) {
    return std::max<qint64>(
        std::min(start + length, otherStart + otherLength) - std::max(start, otherStart), 0);
}

qint64 SharedArea(const WindowPlace& window, const WindowPlace& screen) {
    return Overlap(window.left, window.width, screen.left, screen.width) *
           Overlap(window.top, window.height, screen.top, screen.height);
}

/// In one direction: reduces the length to the screen's, then moves the start so that all of it is
/// on the screen.
void Clamp(qint32& start, qint32& length, qint32 screenStart, qint32 screenLength) {
    length = std::clamp(length, 0, screenLength);
    start = std::clamp(start, screenStart, screenStart + screenLength - length);
}

/// All screens, the main one first.
std::vector<WindowPlace> Screens() {
    std::vector<WindowPlace> places{WindowPlacement::MainScreen()};
    for (const QScreen* screen : QGuiApplication::screens())
        places.push_back(InTwips(screen->availableGeometry()));
    return places;
}

} // namespace

WindowPlace OnScreens(const WindowPlace& stored, std::span<const WindowPlace> screens) {
    const auto screen = std::ranges::max_element(
        screens, {}, [&stored](const WindowPlace& each) { return SharedArea(stored, each); });
    WindowPlace place = stored;
    Clamp(place.left, place.width, screen->left, screen->width);
    Clamp(place.top, place.height, screen->top, screen->height);
    return place;
}

WindowPlacement::WindowPlacement(QWidget& window) : window_(window) {
    window_.installEventFilter(this);
}

bool WindowPlacement::CanMove() {
    return !QGuiApplication::platformName().startsWith("wayland"_L1);
}

WindowPlace WindowPlacement::MainScreen() {
    return InTwips(QGuiApplication::primaryScreen()->availableGeometry());
}

void WindowPlacement::MoveTo(const WindowPlace& stored, Size size) {
    const WindowPlace place = OnScreens(stored, Screens());
    meaning_ = size;
    askedSize_ = QSize(ToPixels(place.width), ToPixels(place.height));
    window_.resize(*askedSize_);
    innerSize_ = window_.size();
    if (CanMove())
        window_.move(ToPixels(place.left), ToPixels(place.top));
}

void WindowPlacement::Show() {
    window_.show();
    window_.windowHandle()->installEventFilter(this);
    FitFrame();
    // A frame that the window paints itself is part of the window: there is nothing to correct.
    if (meaning_ == Size::WithoutFrame && window_.windowFlags().testFlag(Qt::FramelessWindowHint))
        askedSize_.reset();
    window_.repaint();
}

void WindowPlacement::NoteBeforeHiding() {
    if (!window_.isVisible())
        return;
    hidden_ = PlaceNow();
    // The window that is shown again needn't match the start any more: by then the desktop's frame
    // may have replaced a painted one.
    if (!window_.isMaximized() && !window_.isMinimized())
        askedSize_.reset();
}

WindowPlace WindowPlacement::Place() const {
    return !window_.isVisible() && hidden_ ? *hidden_ : PlaceNow();
}

WindowPlace WindowPlacement::PlaceNow() const {
    // Ask the window system: the widget still has the value from before the frame was added.
    const QWindow* window = window_.windowHandle();
    return InTwips(window != nullptr ? window->frameGeometry() : window_.frameGeometry());
}

bool WindowPlacement::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window_.windowHandle() &&
        (event->type() == QEvent::Expose || event->type() == QEvent::Resize ||
         event->type() == QEvent::Move))
        FitFrame();
    // The window's new size may arrive before or after the change of state.
    if (watched == &window_ && event->type() == QEvent::WindowStateChange && window_.isVisible() &&
        window_.windowHandle()->size() == innerSize_)
        FitFrame();
    return QObject::eventFilter(watched, event);
}

/// Once the window's frame is known, gives the window including its frame the size that was asked
/// for; a maximised window gets it when it is back in its normal state. If the window's smallest
/// size makes it larger than that, it is moved so that it stays on its screen.
void WindowPlacement::FitFrame() {
    const QWindow& window = *window_.windowHandle();
    const QMargins frame = DesktopFrame(window_);
    if (!askedSize_ || frame.isNull() || window_.isMaximized() || window_.isMinimized())
        return;
    const QSize asked = *std::exchange(askedSize_, std::nullopt);
    // False if the window has been resized meanwhile, other than by its own smallest size.
    const bool isAsAsked = window.size() == innerSize_.expandedTo(window_.minimumSize());
    QResizeEvent again(window_.size(), window_.size());
    QCoreApplication::sendEvent(&window_, &again);
    const QSize around(frame.left() + frame.right(), frame.top() + frame.bottom());
    if (isAsAsked)
        window_.resize(meaning_ == Size::WithFrame ? asked - around : asked);
    const WindowPlace place = PlaceNow();
    if (CanMove() &&
        (place.width > ToTwips(asked.width()) || place.height > ToTwips(asked.height()))) {
        const WindowPlace kept = OnScreens(place, Screens());
        if (kept.left != place.left || kept.top != place.top)
            window_.move(ToPixels(kept.left), ToPixels(kept.top));
    }
}

} // namespace netrove

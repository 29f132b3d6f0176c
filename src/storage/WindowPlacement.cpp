#include "storage/WindowPlacement.h"

#include "controls/Twips.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QResizeEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <vector>

namespace netrove {
namespace {

WindowPlace InTwips(const QRect& pixels) {
    return {.left = ToTwips(pixels.x()),
            .top = ToTwips(pixels.y()),
            .width = ToTwips(pixels.width()),
            .height = ToTwips(pixels.height())};
}

/// How much of a line from `start` on lies on another one.
qint64 Overlap(qint64 start, qint64 length, qint64 otherStart, qint64 otherLength) {
    return std::max<qint64>(
        std::min(start + length, otherStart + otherLength) - std::max(start, otherStart), 0);
}

qint64 SharedArea(const WindowPlace& window, const WindowPlace& screen) {
    return Overlap(window.left, window.width, screen.left, screen.width) *
           Overlap(window.top, window.height, screen.top, screen.height);
}

/// One direction: a length that fits, then a start at which all of it is on the screen.
void Clamp(qint32& start, qint32& length, qint32 screenStart, qint32 screenLength) {
    length = std::clamp(length, 0, screenLength);
    start = std::clamp(start, screenStart, screenStart + screenLength - length);
}

/// The main screen first.
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
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

WindowPlace WindowPlacement::MainScreen() {
    return InTwips(QGuiApplication::primaryScreen()->availableGeometry());
}

void WindowPlacement::MoveTo(const WindowPlace& stored) {
    const WindowPlace place = OnScreens(stored, Screens());
    outerSize_ = QSize(ToPixels(place.width), ToPixels(place.height));
    window_.resize(*outerSize_);
    innerSize_ = window_.size();
    if (CanMove())
        window_.move(ToPixels(place.left), ToPixels(place.top));
}

void WindowPlacement::Show() {
    window_.show();
    window_.windowHandle()->installEventFilter(this);
    FitFrame();
    window_.repaint();
}

WindowPlace WindowPlacement::Place() const {
    return !window_.isVisible() && hidden_ ? *hidden_ : PlaceNow();
}

WindowPlace WindowPlacement::PlaceNow() const {
    // The window system's own answer: the widget keeps one from before the frame was there.
    const QWindow* window = window_.windowHandle();
    return InTwips(window != nullptr ? window->frameGeometry() : window_.frameGeometry());
}

bool WindowPlacement::eventFilter(QObject* watched, QEvent* event) {
    // A hidden window may lose its frame.
    if (watched == &window_ && event->type() == QEvent::Hide)
        hidden_ = PlaceNow();
    if (watched == window_.windowHandle() &&
        (event->type() == QEvent::Expose || event->type() == QEvent::Resize))
        FitFrame();
    // Its size may come before or after this.
    if (watched == &window_ && event->type() == QEvent::WindowStateChange && window_.isVisible() &&
        window_.windowHandle()->size() == innerSize_)
        FitFrame();
    return QObject::eventFilter(watched, event);
}

/// Makes the window with its frame as large as was asked for, once its frame is known; a maximised
/// one when it is back in its normal state. Its smallest size may make it larger: then it is kept
/// on its screen.
void WindowPlacement::FitFrame() {
    const QWindow& window = *window_.windowHandle();
    const QMargins frame = window.frameMargins();
    if (!outerSize_ || frame.isNull() || window_.isMaximized() || window_.isMinimized())
        return;
    const QSize outer = *outerSize_;
    outerSize_.reset();
    // The window's own rules of size count the frame too.
    QResizeEvent again(window_.size(), window_.size());
    QCoreApplication::sendEvent(&window_, &again);
    if (window.size() == innerSize_)
        window_.resize(outer - QSize(frame.left() + frame.right(), frame.top() + frame.bottom()));
    const WindowPlace place = PlaceNow();
    if (CanMove() &&
        (place.width > ToTwips(outer.width()) || place.height > ToTwips(outer.height()))) {
        const WindowPlace kept = OnScreens(place, Screens());
        window_.move(ToPixels(kept.left), ToPixels(kept.top));
    }
}

} // namespace netrove

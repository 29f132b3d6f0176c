#pragma once

#include <QMargins>
#include <QObject>
#include <QWidget>

#include <optional>
#include <span>

namespace netrove {

/// The place of a window including its frame, or the part of a screen that windows can use; twips.
struct WindowPlace {
    qint32 left = 0;
    qint32 top = 0;
    qint32 width = 0;
    qint32 height = 0;

    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

/// A stored place, made no larger than its screen and moved wholly onto it. Its screen is the one
/// that holds most of it, or the first, the main one, if none holds any of it. The stored numbers
/// may be any.
[[nodiscard]] WindowPlace OnScreens(const WindowPlace& stored,
                                    std::span<const WindowPlace> screens);

/// Puts a window where it stood in an earlier run, and tells where it stands now. Sizes include the
/// window's frame, whose size is known only after the window has been shown: then the window's
/// inner size is corrected.
class WindowPlacement : public QObject {
    Q_OBJECT

public:
    /// The window must outlive this.
    explicit WindowPlacement(QWidget& window);

    /// Whether programs can choose where their windows stand. On Wayland they can't, nor can they
    /// find out; they can choose the sizes.
    [[nodiscard]] static bool CanMove();

    /// The part of the main screen that windows can use.
    [[nodiscard]] static WindowPlace MainScreen();

    /// Moves and sizes the window, which hasn't been shown yet, by OnScreens. The size includes the
    /// frame or, with Size::WithoutFrame, doesn't.
    enum class Size { WithFrame, WithoutFrame };
    void MoveTo(const WindowPlace& stored, Size size = Size::WithFrame);

    /// Shows the window, and paints it at once.
    void Show();

    /// To be called before the window is hidden: some time after that the window system removes
    /// its frame.
    void NoteBeforeHiding();

    /// Where the window stands now, or stood before it was hidden.
    [[nodiscard]] WindowPlace Place() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] WindowPlace PlaceNow() const;
    void FitFrame();

    QWidget& window_;
    std::optional<WindowPlace> hidden_{};
    std::optional<QSize> askedSize_{}; ///< in pixels; nothing once the frame's size is known
    QSize innerSize_{};                ///< the size set before the frame's was known
    Size meaning_ = Size::WithFrame;   ///< of askedSize_
};

} // namespace netrove

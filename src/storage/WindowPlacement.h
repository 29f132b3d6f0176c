#pragma once

#include <QMargins>
#include <QObject>
#include <QWidget>

#include <optional>
#include <span>

namespace netrove {

/// Where a window stands with its frame, or a screen's part that windows can use; twips.
struct WindowPlace {
    qint32 left = 0;
    qint32 top = 0;
    qint32 width = 0;
    qint32 height = 0;

    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

/// A stored place on the screen that holds most of it, or on the first, the main one, where none
/// holds any of it: no larger than the screen and whole on it. Any numbers will do.
[[nodiscard]] WindowPlace OnScreens(const WindowPlace& stored,
                                    std::span<const WindowPlace> screens);

/// Puts a window where it stood in an earlier run, and tells where it stands. Frames count: their
/// size is known only after the window has been shown, which is when its inner size is corrected.
class WindowPlacement : public QObject {
    Q_OBJECT

public:
    /// The window must outlive this.
    explicit WindowPlacement(QWidget& window);

    /// Whether programs can choose where their windows stand. On Wayland they can't, and aren't
    /// told; sizes are theirs.
    [[nodiscard]] static bool CanMove();

    /// The main screen's part that windows can use.
    [[nodiscard]] static WindowPlace MainScreen();

    /// Moves and sizes the window, which hasn't been shown yet, by OnScreens. The size counts the
    /// frame, or is that of the window `WithoutFrame`.
    enum class Size { WithFrame, WithoutFrame };
    void MoveTo(const WindowPlace& stored, Size size = Size::WithFrame);

    /// Shows the window, and paints it at once.
    void Show();

    /// To be called before the window is hidden: the window system then takes its frame away, at a
    /// moment of its own.
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
    std::optional<QSize> askedSize_{}; ///< in pixels; until the frame's size is known
    QSize innerSize_{};                ///< what was asked for without knowing it
    Size meaning_ = Size::WithFrame;   ///< of askedSize_, until then
};

} // namespace netrove

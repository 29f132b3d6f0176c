#pragma once

#include <QMargins>
#include <QRect>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

class QWindow;

namespace netrove {

/// Takes the desktop's frame from a window and gives it back, without re-creating the window. The
/// window keeps the place and size that it has on the screen with its frame.
class StandardFrameSwitch : public QObject {
    Q_OBJECT
public:
    /// How thick the desktop's frame is around the window now.
    using Measure = std::function<QMargins(const QWindow&)>;

    /// The window owns this object.
    StandardFrameSwitch(QWidget& window, Measure measure);

    void TakeAway();
    void GiveBack();

    /// Whether the desktop kept its frame around the window the last time that it was to take it
    /// away.
    [[nodiscard]] bool DesktopInsists() const { return insists_; }

    /// Whether the window has a place on the screen, or had one before it was hidden.
    [[nodiscard]] bool HasPlace() const { return window_.isVisible() || lastOuter_.has_value(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void InsistenceChanged();

private:
    void Switch(bool frameless);
    [[nodiscard]] QMargins Margins() const;
    [[nodiscard]] std::optional<QRect> Outer() const;
    void FitTarget(const QMargins& frame);
    [[nodiscard]] bool IsAtTarget(const QMargins& frame) const;
    void BeginSettling();
    void Settle();
    void TellFrameChanged();
    void EndSettling();

    QWidget& window_;
    Measure measure_;
    bool frameless_ = false;
    bool insists_ = false;
    bool told_ = false;              ///< the widget knows that the frame has changed
    QMargins standardFrame_;         ///< as it was last seen
    std::optional<QRect> target_;    ///< where window and frame are to stand; empty once they do
    std::optional<QRect> lastOuter_; ///< where it stood when it was hidden
    QTimer settling_;
    int ticks_ = 0;
};

} // namespace netrove

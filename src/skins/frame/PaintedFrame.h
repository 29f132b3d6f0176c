#pragma once

#include "skins/NCSizeModifier.h"
#include "skins/StandardFrame.h"
#include "skins/frame/FrameParts.h"
#include "skins/frame/MenuBarLook.h"
#include "skins/frame/StandardFrameSwitch.h"

#include <QPointer>

namespace netrove {

/// A frame that is painted from the configuration, in place of the desktop's. It takes the room
/// that it needs from the window's contents margins; a window on the screen keeps its place and
/// outer size; one that hasn't been shown yet, or can't be resized, keeps its client size.
///
/// Where the desktop insists on a frame of its own, only the colours are used.
///
/// Lives as long as its window; if the window goes on without it, call Detach first.
class PaintedFrame : public QObject, public NCSizeModifier {
public:
    /// `measure` returns how thick the desktop's frame around a window is.
    explicit PaintedFrame(StandardFrameSwitch::Measure measure = DesktopFrame);

    void Detach() override;
    [[nodiscard]] quint32 ResolvedBackColor() const override;
    [[nodiscard]] quint32 ResolvedForeColor() const override;
    void Attach(QWidget& window, const SkinConfiguration& configuration) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static QMargins DesktopFrame(const QWindow& window);

    [[nodiscard]] bool IsAttached() const { return look_ && window_; }
    [[nodiscard]] bool IsPainted() const;
    [[nodiscard]] QMargins FrameMargins() const;
    void Bind(QWidget& window);
    /// Makes room for the frame and shows it, or takes both back.
    void LayOut(bool keepClientSize);
    void Grow(const QSize& by);
    void CutCorners();

    StandardFrameSwitch::Measure measure_;
    QPointer<QWidget> window_;
    std::shared_ptr<const FrameLook> look_; ///< while attached
    QPointer<FrameParts> parts_;            ///< these two belong to the window
    QPointer<StandardFrameSwitch> standardFrame_;
    QMargins ownMargins_; ///< the margins that the window has without the frame
    MenuBarLook menuBar_;
    StandardFrame desktop_; ///< for the colours while detached
};

} // namespace netrove

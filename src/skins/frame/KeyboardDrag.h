#pragma once

#include <QObject>
#include <QRect>
#include <QWidget>

#include <optional>

class QKeyEvent;

namespace netrove {

/// Moves or resizes a window with the arrow keys, by single pixels while Ctrl is down. As long as a
/// drag lasts it takes all keys; Enter or the mouse ends it, Escape puts the window back.
class KeyboardDrag : public QObject {
public:
    explicit KeyboardDrag(QWidget& window) : QObject(&window), window_(window) {}
    KeyboardDrag(const KeyboardDrag&) = delete;
    KeyboardDrag& operator=(const KeyboardDrag&) = delete;
    ~KeyboardDrag() override { End(); }

    void BeginMove() { Begin(false); }
    void BeginResize() { Begin(true); }
    [[nodiscard]] bool IsOn() const { return start_.has_value(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Begin(bool resize);
    void End();
    void Press(const QKeyEvent& event);
    void Step(const QPoint& by);

    QWidget& window_;
    bool resize_ = false;
    std::optional<QRect> start_; ///< where the window stood at the start, while a drag lasts
};

} // namespace netrove

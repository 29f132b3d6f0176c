#pragma once

#include <QWidget>

namespace netrove {

/// An outline that flies across the screen from one place to another, and is gone. It takes
/// neither mouse nor focus.
class FlyingFrame : public QWidget {
    Q_OBJECT

public:
    /// Nothing flies where the desktop wants no animations.
    static void Fly(const QRect& from, const QRect& to);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    FlyingFrame();
};

} // namespace netrove

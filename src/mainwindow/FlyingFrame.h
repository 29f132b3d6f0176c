#pragma once

#include <QWidget>

namespace netrove {

/// An outline that flies across the screen from one place to another, then disappears. It takes
/// neither the mouse nor the focus.
class FlyingFrame : public QWidget {
    Q_OBJECT

public:
    /// Does nothing where the desktop has animations switched off.
    static void Fly(const QRect& from, const QRect& to);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    FlyingFrame();
};

} // namespace netrove

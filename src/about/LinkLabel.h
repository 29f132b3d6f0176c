#pragma once

#include <QLabel>

namespace netrove {

/// A label that leads somewhere: underlined, with a hand for the mouse, and red once it has been
/// used. The keyboard can reach it too; Enter and the space bar act as the left button.
class LinkLabel : public QLabel {
    Q_OBJECT

public:
    LinkLabel(const QString& name, const QString& text, const QString& toolTip, QWidget* parent);

    void SetUsed();

Q_SIGNALS:
    /// A button went down on it.
    void MouseDown(Qt::MouseButton button);
    /// The left button went down and up on it.
    void Click();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace netrove

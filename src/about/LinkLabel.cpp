#include "about/LinkLabel.h"

#include "controls/Color.h"

#include <QMouseEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace netrove {

LinkLabel::LinkLabel(const QString& name, const QString& text, const QString& toolTip,
                     QWidget* parent)
    : QLabel(text, parent) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setToolTip(toolTip);
    setAccessibleDescription(toolTip);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
    QPalette link = palette();
    link.setColor(QPalette::WindowText,
                  Legible(link.color(QPalette::Link), link.color(QPalette::Window)));
    setPalette(link);
}

void LinkLabel::SetUsed() {
    QPalette used = palette();
    used.setColor(QPalette::WindowText, Qt::red);
    setPalette(used);
}

void LinkLabel::mousePressEvent(QMouseEvent* event) {
    Q_EMIT MouseDown(event->button());
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        Q_EMIT Click();
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space) {
        QLabel::keyPressEvent(event);
        return;
    }
    Q_EMIT MouseDown(Qt::LeftButton);
    Q_EMIT Click();
}

void LinkLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QStylePainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(QPalette::Window);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

} // namespace netrove

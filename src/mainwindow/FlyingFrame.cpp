#include "mainwindow/FlyingFrame.h"

#include <QPainter>
#include <QStyle>
#include <QVariantAnimation>

namespace netrove {
namespace {

constexpr int FlightMilliseconds = 250;
constexpr int Thickness = 3; ///< of the outline, in pixels

} // namespace

FlyingFrame::FlyingFrame()
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint |
                           Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus) {
    setAttribute(Qt::WA_ShowWithoutActivating);
}

void FlyingFrame::Fly(const QRect& from, const QRect& to) {
    auto* frame = new FlyingFrame;
    if (frame->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, frame) == 0) {
        delete frame;
        return;
    }
    auto* flight = new QVariantAnimation(frame);
    flight->setDuration(FlightMilliseconds);
    flight->setStartValue(from);
    flight->setEndValue(to);
    connect(flight, &QVariantAnimation::valueChanged, frame,
            [frame](const QVariant& place) { frame->setGeometry(place.toRect()); });
    connect(flight, &QVariantAnimation::finished, frame, &QObject::deleteLater);
    frame->setGeometry(from);
    frame->show();
    flight->start();
}

void FlyingFrame::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), palette().color(QPalette::Highlight));
}

/// A mask leaves the inside transparent on desktops without compositing, too.
void FlyingFrame::resizeEvent(QResizeEvent* /*event*/) {
    const QRect inside = rect().adjusted(Thickness, Thickness, -Thickness, -Thickness);
    setMask(QRegion(rect()) - QRegion(inside));
}

} // namespace netrove

#include "controls/ListHeader.h"

#include <QMouseEvent>

#include <utility>

namespace netrove {

namespace {

/// Pixels to the right of an edge that belong to the hidden columns there, shared evenly.
constexpr int HiddenEdgeWidth = 6;
/// The user can't drag a column narrower than this, in pixels, so that none gets lost.
constexpr int MinimumColumnWidth = 12;

} // namespace

ListHeader::ListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
    setSectionsMovable(false);
    setHighlightSections(false);
    setStretchLastSection(false);
    setMinimumSectionSize(MinimumColumnWidth);
    connect(this, &QHeaderView::sectionClicked, this, [this](int column) { clicked_ = column; });
}

int ListHeader::ColumnAt(int x) const {
    const int hidden = HiddenColumnAt(x);
    return hidden >= 0 ? hidden : logicalIndexAt(x);
}

void ListHeader::mousePressEvent(QMouseEvent* event) {
    if (HiddenColumnAt(event->pos().x()) < 0)
        QHeaderView::mousePressEvent(event);
}

void ListHeader::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton && HiddenColumnAt(event->pos().x()) >= 0)
        unsetCursor();
    else
        QHeaderView::mouseMoveEvent(event);
}

void ListHeader::mouseReleaseEvent(QMouseEvent* event) {
    QHeaderView::mouseReleaseEvent(event);
    // Raised when the header is done with the click: handlers may run the event loop.
    if (event->button() == Qt::RightButton && rect().contains(event->pos()))
        Q_EMIT RightClicked(ColumnAt(event->pos().x()), event->globalPosition().toPoint());
    else if (const int column = std::exchange(clicked_, -1); column >= 0)
        Q_EMIT Clicked(column);
}

void ListHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    if (HiddenColumnAt(event->pos().x()) < 0)
        QHeaderView::mouseDoubleClickEvent(event);
}

int ListHeader::HiddenColumnAt(int x) const {
    for (int first = 0, last = 0; first < count(); first = last + 1) {
        last = first;
        if (!isSectionHidden(first))
            continue;
        while (last + 1 < count() && isSectionHidden(last + 1))
            ++last;
        const int offset = x - sectionViewportPosition(first);
        if (offset >= 0 && offset < HiddenEdgeWidth)
            return first + offset * (last - first + 1) / HiddenEdgeWidth;
    }
    return -1;
}

} // namespace netrove

#pragma once

#include "controls/ListHeader.h"
#include "controls/ListView.h"

#include <QMouseEvent>
#include <QTest>

namespace netrove {

/// The texts of a column (0 is the first), from the first row to the last.
inline std::string Column(const ListView& list, int subItem = 0) {
    QStringList texts;
    for (int row = 1; row <= list.Count(); ++row)
        texts.append(subItem == 0 ? list.Text(row) : list.SubItem(row, subItem));
    return texts.join(u' ').toStdString();
}

/// A place in the viewport on this row, in the first column.
inline QPoint PlaceOf(ListView& list, int row) {
    list.Flush();
    return list.visualRect(list.model()->index(row - 1, 0)).center();
}

inline void ClickRow(ListView& list, int row, Qt::KeyboardModifiers keys = {},
                     Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(list.viewport(), button, keys, PlaceOf(list, row));
}

inline void ClickHeader(ListView& list, int column, Qt::MouseButton button = Qt::LeftButton) {
    ListHeader& header = *list.Header();
    QTest::mouseClick(header.viewport(), button, {},
                      {header.sectionViewportPosition(column - 1) + 20, header.height() / 2});
}

/// Moves the mouse to one place, presses its button, and lets it go at another place.
inline void DragMouse(QWidget& target, const QPoint& from, const QPoint& to) {
    const auto send = [&](QEvent::Type type, const QPoint& place, Qt::MouseButton button,
                          Qt::MouseButtons held) {
        QMouseEvent event(type, place, target.mapToGlobal(place), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&target, &event);
    };
    send(QEvent::MouseMove, from, Qt::NoButton, Qt::NoButton);
    send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    for (const QPoint& place : {from, (from + to) / 2, to})
        send(QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
}

} // namespace netrove

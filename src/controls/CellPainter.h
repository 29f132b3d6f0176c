#pragma once

#include <QPainter>
#include <QPalette>
#include <QStyleOption>

namespace netrove {

class ImageList;
class ListModel;

/// Paints the cells of a ListView.
class CellPainter {
public:
    /// The edge length of a row's picture, and the space left free around pictures and texts, in
    /// pixels.
    static constexpr int PictureSize = 16;
    static constexpr int Margin = 3;

    CellPainter(QPainter& painter, const ListModel& model, const QFont& font,
                const QPalette& palette, QPalette::ColorGroup group, const ImageList* pictures);

    /// The place of a row's check box within its first cell.
    [[nodiscard]] static QRect CheckBoxPlace(const QRect& cellRect);

    [[nodiscard]] static int RowHeight(const QFontMetrics& metrics);

    /// The width that a cell needs to show all of its text.
    [[nodiscard]] static int CellWidth(const ListModel& model, int row, int column,
                                       const QFont& font, const ImageList* pictures);

    void PaintRowBackground(const QRect& rowRect, int row);
    void PaintCell(const QRect& cellRect, int row, int column);

    [[nodiscard]] QColor GridColor() const;

private:
    void PaintProgress(const QRect& cellRect, int row, int column);
    [[nodiscard]] QColor TextColor(int row, int column) const;

    QPainter& painter_;
    const ListModel& model_;
    QFont font_;
    QFont boldFont_;
    const QPalette& palette_;
    QPalette::ColorGroup group_;
    const ImageList* pictures_;
};

} // namespace netrove

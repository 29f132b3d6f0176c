#include "controls/CellPainter.h"

#include "controls/Color.h"
#include "controls/ImageList.h"
#include "controls/ListModel.h"

#include <algorithm>
#include <cmath>

namespace netrove {

namespace {

/// No column shows more characters than this; laying out a huge text would hold up the window.
constexpr qsizetype MaxShownText = 1024;
/// Share of the text's colour in a progress bar: enough to be seen, and the text on it can still be
/// read.
constexpr double ProgressShade = 0.25;
/// Contrast of a row's own colour to the background; a colour with less is shown lighter or darker.
constexpr double MinimumContrast = 3;

QFont Emboldened(QFont font) {
    font.setBold(true);
    return font;
}

int PictureSpace(int column, const ImageList* pictures) {
    return column == 1 && pictures != nullptr ? CellPainter::PictureSize + CellPainter::Margin : 0;
}

/// A check box has the size of a picture.
int CheckBoxSpace(int column, const ListModel& model) {
    return column == 1 && model.CheckBoxes() ? CellPainter::PictureSize + CellPainter::Margin : 0;
}

} // namespace

CellPainter::CellPainter(QPainter& painter, const ListModel& model, const QFont& font,
                         const QPalette& palette, QPalette::ColorGroup group,
                         const ImageList* pictures)
    : painter_(painter)
    , model_(model)
    , font_(font)
    , boldFont_(Emboldened(font))
    , palette_(palette)
    , group_(group)
    , pictures_(pictures) {}

QRect CellPainter::CheckBoxPlace(const QRect& cellRect) {
    return {cellRect.x() + Margin, cellRect.y() + (cellRect.height() - PictureSize) / 2,
            PictureSize, PictureSize};
}

int CellPainter::RowHeight(const QFontMetrics& metrics) {
    return std::max(metrics.height(), PictureSize) + 2;
}

int CellPainter::CellWidth(const ListModel& model, int row, int column, const QFont& font,
                           const ImageList* pictures) {
    const QFontMetrics metrics(model.Bold(row, column) ? Emboldened(font) : font);
    return metrics.horizontalAdvance(model.Text(row, column).left(MaxShownText)) + 2 * Margin + 1 +
           PictureSpace(column, pictures) + CheckBoxSpace(column, model);
}

void CellPainter::PaintRowBackground(const QRect& rowRect, int row) {
    if (model_.IsSelected(row))
        painter_.fillRect(rowRect, palette_.brush(group_, QPalette::Highlight));
}

void CellPainter::PaintCell(const QRect& cellRect, int row, int column) {
    PaintProgress(cellRect, row, column);
    QRect space = cellRect.adjusted(Margin + CheckBoxSpace(column, model_), 0, -Margin, 0);
    if (column == 1 && pictures_ != nullptr) {
        const QRect place(space.x(), space.y() + (space.height() - PictureSize) / 2, PictureSize,
                          PictureSize);
        const QIcon picture = pictures_->Picture(model_.PictureKey(row));
        if (!picture.isNull() && place.right() < cellRect.right())
            picture.paint(&painter_, place);
        space.setLeft(space.x() + PictureSpace(column, pictures_));
    }
    QString text = model_.Text(row, column);
    if (text.isEmpty() || space.width() <= 0)
        return;
    text.truncate(MaxShownText);
    const QFont& font = model_.Bold(row, column) ? boldFont_ : font_;
    painter_.setFont(font);
    painter_.setPen(TextColor(row, column));
    // A text of several lines is shown in one line.
    painter_.drawText(
        space, static_cast<int>(model_.Alignment(column) | Qt::AlignVCenter) | Qt::TextSingleLine,
        QFontMetrics(font).elidedText(text, Qt::ElideRight, space.width()));
}

/// Paints the bar over the share of the cell that is done, and the note at the right if the cell's
/// text leaves room.
void CellPainter::PaintProgress(const QRect& cellRect, int row, int column) {
    const std::optional<ListModel::Progress> progress = model_.ProgressOf(row, column);
    if (!progress)
        return;
    const QColor text = TextColor(row, column);
    const QColor back =
        palette_.color(group_, model_.IsSelected(row) ? QPalette::Highlight : QPalette::Base);
    QRect done = cellRect.adjusted(0, 1, -1, -1);
    done.setWidth(
        static_cast<int>(std::lround(done.width() * std::clamp(progress->share, 0.0, 1.0))));
    painter_.fillRect(done, Mixed(back, text, ProgressShade));

    const QFontMetrics metrics(font_);
    const int taken = CellWidth(model_, row, column, font_, pictures_);
    const int needed = metrics.horizontalAdvance(progress->note) + 2 * Margin;
    if (taken + needed > cellRect.width())
        return;
    painter_.setFont(font_);
    painter_.setPen(text);
    painter_.drawText(cellRect.adjusted(0, 0, -Margin, 0),
                      static_cast<int>(Qt::AlignRight | Qt::AlignVCenter), progress->note);
}

QColor CellPainter::GridColor() const {
    return Mixed(palette_.color(group_, QPalette::Base), palette_.color(group_, QPalette::Text),
                 0.15);
}

QColor CellPainter::TextColor(int row, int column) const {
    if (model_.IsSelected(row))
        return palette_.color(group_, QPalette::HighlightedText);
    const QColor own = model_.ForeColor(row, column);
    return own.isValid() ? Legible(own, palette_.color(group_, QPalette::Base), MinimumContrast)
                         : palette_.color(group_, QPalette::Text);
}

} // namespace netrove

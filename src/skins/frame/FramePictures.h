#pragma once

#include "skins/frame/FrameMetrics.h"
#include "skins/frame/SkinTransform.h"

#include <QPixmap>

#include <array>

namespace netrove {

/// The cells of a frame picture, from left to right.
enum class FrameCell { Face, FaceUnderMouse, FacePressed, Minimize, Maximize, Restore, Close };

/// The pieces that one row of a title picture is cut into, from left to right.
struct TitlePieces {
    QPixmap leftCap;
    QPixmap tile; ///< behind the caption
    QPixmap divider;
    QPixmap filler;
    QPixmap rightCap;
};

/// The two pictures of a skin, cut and in the colours that the user has adjusted. Cutting once
/// makes it cheap to paint from them.
class FramePictures {
public:
    FramePictures(const SkinConfiguration& configuration, const FrameMetrics& metrics);

    /// Whether making the pictures anew from the configuration would give the same ones.
    [[nodiscard]] bool AreOf(const SkinConfiguration& configuration,
                             const FrameMetrics& metrics) const;

    [[nodiscard]] const TitlePieces& Title(bool active) const {
        return active ? activeTitle_ : inactiveTitle_;
    }

    /// The cell's picture; null where the skin has none.
    [[nodiscard]] const QPixmap& Cell(FrameCell cell, bool active) const;

    /// Whether the cells of inactive windows have a look of their own.
    [[nodiscard]] bool HasInactiveCells() const { return source_.cellRows == 2; }

private:
    static constexpr int CellCount = 7;
    using Cells = std::array<QPixmap, CellCount>;

    /// Everything that the pictures depend on.
    struct Source {
        Source(const SkinConfiguration& configuration, const FrameMetrics& metrics);

        qint64 titlePicture;
        qint64 framePicture;
        int cellRows;
        FrameMetrics metrics;
        SkinTransform transform;

        friend bool operator==(const Source&, const Source&) = default;
    };

    static TitlePieces CutTitle(const QImage& picture, int row, const FrameMetrics& metrics);
    static Cells CutCells(const QImage& picture, int row, int rows);

    Source source_;
    TitlePieces activeTitle_;
    TitlePieces inactiveTitle_;
    Cells activeCells_;
    Cells inactiveCells_;
};

} // namespace netrove

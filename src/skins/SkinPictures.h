#pragma once

#include <QPixmap>

#include <array>

namespace netrove {

/// The ten pictures that the built-in skins are painted from, `picResource`: of each a bitmap or
/// GIF in its own size, and a drawing that stays sharp on denser screens.
class SkinPictures {
public:
    static constexpr int Count = 10;

    /// The picture for screens of that device pixel ratio: at 1 the bitmap or GIF, above that the
    /// drawing, rendered at the next whole ratio (4 at most) so that every column of the picture
    /// stays one of whole pixels. Its logical size is the same at any ratio. Null for an entry
    /// that isn't 0 to 9.
    [[nodiscard]] QPixmap Picture(int entry, qreal devicePixelRatio) const;

private:
    static constexpr int HighestRatio = 4;

    mutable std::array<std::array<QPixmap, HighestRatio>, Count> cache_;
};

} // namespace netrove

#pragma once

#include <QPixmap>

#include <array>

namespace netrove {

/// The ten pictures that the built-in skins are painted from, `picResource`: each as a bitmap or
/// GIF in its own size, and as a drawing that stays sharp on denser screens.
class SkinPictures {
public:
    static constexpr int Count = 10;

    /// The picture for screens of this device pixel ratio: up to 1 the bitmap or GIF, above that
    /// the drawing, rendered at the next whole ratio (at most 4), so that every column of the
    /// picture remains a whole number of pixels wide. Its logical size is the same at any ratio.
    /// Null for an entry that isn't 0 to 9.
    [[nodiscard]] QPixmap Picture(int entry, qreal devicePixelRatio) const;

private:
    static constexpr int HighestRatio = 4;

    mutable std::array<std::array<QPixmap, HighestRatio>, Count> cache_;
};

} // namespace netrove

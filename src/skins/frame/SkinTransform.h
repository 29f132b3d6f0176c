#pragma once

#include <QColor>
#include <QImage>

namespace netrove {

class SkinConfiguration;

/// Applies the user's adjustments to a skin's colours. First `Colorize`: every colour keeps its
/// lightness (that of HSL) and takes the hue and the saturation; then `AdjustRGB`: each channel
/// moves by its percentage towards 0 or towards its full value. Pictures and single colours are
/// treated alike.
class SkinTransform {
public:
    /// Leaves all colours as they are.
    SkinTransform() = default;
    /// Takes the adjustments; what is out of its range is brought into it, what isn't a number
    /// counts as 0.
    explicit SkinTransform(const SkinConfiguration& configuration);

    [[nodiscard]] QColor Apply(const QColor& color) const;

    /// The picture with its alpha as it was; its format is ARGB32.
    [[nodiscard]] QImage Apply(const QImage& picture) const;

    friend bool operator==(const SkinTransform&, const SkinTransform&) = default;

private:
    [[nodiscard]] QRgb Colorized(int brightestAndDarkest) const;
    [[nodiscard]] QRgb Adjusted(QRgb color) const;
    void ApplyByLightness(QImage& picture) const;
    void ApplyByChannel(QImage& picture) const;

    bool colorize_ = false;
    float hue_ = 0;
    float saturation_ = 0;
    bool adjust_ = false;
    float red_ = 0;
    float green_ = 0;
    float blue_ = 0;
};

} // namespace netrove

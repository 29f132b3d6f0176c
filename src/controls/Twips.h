#pragma once

namespace netrove {

/// Twips to the logical pixel. Sizes of windows, controls and columns are in twips (1/1440 inch)
/// wherever a rule or the settings file speaks of them.
inline constexpr int TwipsPerPixel = 15;

[[nodiscard]] constexpr int ToPixels(int twips) {
    return twips / TwipsPerPixel;
}
[[nodiscard]] constexpr int ToTwips(int pixels) {
    return pixels * TwipsPerPixel;
}

} // namespace netrove

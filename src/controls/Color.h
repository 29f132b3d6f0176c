#pragma once

#include <QColor>

namespace netrove {

/// Colours as the rules and the settings file write them: 32 bits, red in the low byte. A value
/// with the top bit set names a colour of the desktop.
inline constexpr quint32 ButtonFaceColor = 0x8000000F;
inline constexpr quint32 WindowBackColor = 0x80000005;
inline constexpr quint32 WindowTextColor = 0x80000008;

/// The colour that such a value stands for now; an unknown desktop colour gives the text colour.
[[nodiscard]] QColor ToColor(quint32 value);

/// The value of a colour; never the name of a desktop colour.
[[nodiscard]] quint32 FromColor(const QColor& color);

/// How far two colours stand apart for the eye, from 1 (not at all) to 21 (black and white): the
/// contrast ratio of WCAG 2.1.
[[nodiscard]] double Contrast(const QColor& first, const QColor& second);

/// Black or white, whichever reads better on this colour.
[[nodiscard]] QColor ReadableOn(const QColor& background);

/// What a text needs to be read with ease: pure red on white is just above.
inline constexpr double ReadableContrast = 3.9;

/// The colour itself where text in it can be read on the background; else made lighter or darker,
/// just enough for that.
[[nodiscard]] QColor Legible(const QColor& color, const QColor& background,
                             double contrast = ReadableContrast);

/// The colour that lies between two: `share` of 0 gives the first, of 1 the second.
[[nodiscard]] QColor Mixed(const QColor& first, const QColor& second, double share);

} // namespace netrove

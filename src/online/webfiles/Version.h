#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <compare>

namespace netrove {

/// The version of a release.
struct Version {
    std::array<qint16, 3> numbers{}; ///< major, minor, revision

    /// Reads "0.99.5". Raises ErrorNumber::SubscriptOutOfRange where there are fewer than three
    /// parts, TypeMismatch where one isn't a number, Overflow where it doesn't fit 16 bits.
    [[nodiscard]] static Version FromText(QStringView text);

    /// The version of this program.
    [[nodiscard]] static Version Own();

    /// "0.99.5", without leading zeros.
    [[nodiscard]] QString Text() const;

    auto operator<=>(const Version&) const = default;
};

} // namespace netrove

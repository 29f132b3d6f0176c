#pragma once

#include <QString>
#include <QStringList>

namespace netrove {

/// The links of the donation file, in their order. There may be one more caption than addresses.
struct DonationLinks {
    static constexpr int Count =
        3; ///< of the first captions and addresses, which are all that count

    QStringList captions;
    QStringList addresses; ///< http and https ones
};

/// Takes the file apart: the marker, then captions and addresses in turn, separated by single
/// blanks. Raises a RunTimeError if the marker, all captions or all addresses are missing, or if
/// one of the addresses can't be opened.
[[nodiscard]] DonationLinks ReadDonationLinks(const QString& answer);

} // namespace netrove

#pragma once

#include <QString>

#include <optional>

namespace netrove {

/// "12 files in 5 seconds.", with another word for one second.
[[nodiscard]] QString FilesInSeconds(qint64 files, qint64 seconds);

/// How a search ended, as a sentence for the user: "Returned 12 files in 5 seconds. (Max return is
/// set to 5000)". Without a cap on the files the part in parentheses is left out.
[[nodiscard]] QString SearchSummary(bool aborted, qint64 files, qint64 seconds,
                                    std::optional<qint32> maxReturnFiles);

} // namespace netrove

#pragma once

#include "controls/ListView.h"
#include "platform/Shell.h"

#include <QMimeData>

#include <memory>
#include <vector>

namespace netrove {

/// The files of rows; a file's path is the row's location (sub-item 1) followed by its text. The
/// result holds the full paths as text, one per line, and the addresses by which other programs
/// know the files. A file without an address is only in the text.
[[nodiscard]] std::unique_ptr<QMimeData> RowFiles(const ListView& list,
                                                  const std::vector<int>& rows, Shell& shell);

} // namespace netrove

#pragma once

#include "controls/ListView.h"
#include "platform/Shell.h"

#include <QMimeData>

#include <memory>
#include <vector>

namespace netrove {

/// The files of rows, each made of the row's location (sub-item 1) and its text: their full paths
/// as text, one a line, and the addresses that other programs know them by. A file that has no
/// address is in the text only.
[[nodiscard]] std::unique_ptr<QMimeData> RowFiles(const ListView& list,
                                                  const std::vector<int>& rows, Shell& shell);

} // namespace netrove

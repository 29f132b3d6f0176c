#pragma once

#include <QString>

namespace netrove::sample {

/// Makes the folders and files of the sample network in `folder`, which is emptied first; always
/// the same ones. Raises std::runtime_error where a file can't be made, and where the folder holds
/// something that isn't a sample network.
void MakeSampleTree(const QString& folder);

} // namespace netrove::sample

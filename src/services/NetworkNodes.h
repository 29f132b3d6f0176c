#pragma once

#include "network/NetResource.h"
#include "platform/NetworkEnumeration.h"
#include "platform/SystemInformation.h"

#include <QString>

#include <memory>

namespace netrove {

/// The node that a path of remote names leads to, from a new root down. Each name is followed by
/// "|": Provider|WORKGROUP|\\SERVER|. Asks the network level by level, and takes as long as that
/// takes. Null if the network has no such node.
///
/// NetEnum::LocalAreaNetwork as the first name stands for the whole first level: if there is no
/// such provider, or it doesn't lead to the node, the others are tried in their order.
[[nodiscard]] std::shared_ptr<NetResource> FindNetNode(const QString& path,
                                                       NetworkEnumeration& network);

/// "\\" and the name of the computer that the program runs on, in upper case; "\\" alone if it
/// has no name.
[[nodiscard]] QString ComputerUNCName(const SystemInformation& system);

} // namespace netrove

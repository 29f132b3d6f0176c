#pragma once

#include "smb/SmbMessages.h"

#include <QByteArray>

#include <functional>

namespace netrove {

/// Asks a computer over its pipe of that address for its workgroup. Gives 0 or an errno.
[[nodiscard]] int AskWorkgroup(const QByteArray& url,
                               const std::function<bool(const SmbAnswer& part)>& part);

} // namespace netrove

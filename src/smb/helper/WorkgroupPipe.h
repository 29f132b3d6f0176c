#pragma once

#include "smb/SmbMessages.h"

#include <QByteArray>

#include <functional>

namespace netrove {

/// Asks a computer for its workgroup, over the pipe with this address. Returns 0 or an errno.
[[nodiscard]] int AskWorkgroup(const QByteArray& url,
                               const std::function<bool(const SmbAnswer& part)>& part);

} // namespace netrove

#pragma once

#include "network/NetResource.h"
#include "platform/Files.h"
#include "platform/NetworkEnumeration.h"
#include "platform/NetworkReport.h"
#include "platform/ReadAhead.h"
#include "redirector/UncPath.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace netrove {

/// The network that is searched.
struct FindServices {
    NetworkEnumeration& network;
    FileAccess& files;
    /// The record of a computer, a share or a folder below one, whether it exists or not.
    std::function<std::optional<NetRecord>(const UncPath&)> record;
    ReadAhead* ahead = nullptr;      ///< null if nothing is read ahead
    NetworkReport* report = nullptr; ///< what a search hasn't seen; may be null
    QString computer;                ///< "\\" and the name of this computer, in upper case
};

/// The node that a search starts at: for an empty text the root; for \\SERVER\SHARE or
/// //SERVER/SHARE that place; for names joined by "|" the node to which they lead. Raises WrongUse
/// if there is no such node, or nobody answers for it. Doesn't test whether a share or a folder
/// exists: the search finds that out while it opens its connections.
[[nodiscard]] std::shared_ptr<NetResource> StartNode(const QString& text,
                                                     const FindServices& services);

/// To be called after a search that has found nothing: raises WrongUse if the text is the path of a
/// share or a folder that can't be entered.
void CheckStart(const QString& text, const FindServices& services);

} // namespace netrove

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
    /// The record of a computer, a share or a folder below, whether it exists or not.
    std::function<std::optional<NetRecord>(const UncPath&)> record;
    ReadAhead* ahead = nullptr;      ///< of the network, if it reads ahead
    NetworkReport* report = nullptr; ///< what a search hasn't seen of it, if anybody keeps that
    QString computer;                ///< "\\" and the name of this computer, in upper case
};

/// The node that a search starts at: for an empty text the root; for \\SERVER\SHARE or
/// //SERVER/SHARE that place; for names joined by "|" the node to which they lead. Raises WrongUse
/// where there is no such node, or nobody answers for it. Whether a share or a folder is there, the
/// search finds out: it opens its connections meanwhile.
[[nodiscard]] std::shared_ptr<NetResource> StartNode(const QString& text,
                                                     const FindServices& services);

/// Raises WrongUse where the text is the path of a share or a folder that can't be entered. For a
/// search that has found nothing there.
void CheckStart(const QString& text, const FindServices& services);

} // namespace netrove

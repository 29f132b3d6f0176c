#pragma once

#include "controls/ImageList.h"
#include "runtime/SourceText.h"

#include <QIcon>
#include <QString>

#include <array>

namespace netrove {

/// The words for the type of an excluded node, in the order in which they are offered.
inline constexpr std::array NodeTypes{"Folder"_L1, "Workstation"_L1, "Workgroup"_L1, "Network"_L1};

/// The picture of one of these types, by its place.
[[nodiscard]] QIcon NodeTypeIcon(std::size_t type);

/// Fills a list with these pictures, each with its word as the key.
void AddNodeTypeIcons(ImageList& images);

/// The key of a type's picture; the case of the word doesn't matter. A word that isn't a type is
/// returned as it is.
[[nodiscard]] QString NodeTypeKey(const QString& type);

} // namespace netrove

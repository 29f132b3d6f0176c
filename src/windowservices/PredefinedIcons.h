#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QStringList>

namespace netrove {

/// The keys of the predefined file icons in the order of the image lists. The first, "<NONE>", is
/// the picture of a file without a known kind.
[[nodiscard]] QStringList PredefinedIconKeys();

/// The icon of a key, drawn for 16 and 32 pixels and their multiples on dense screens. Raises
/// ErrorNumber::KeyNotFound for any other key.
[[nodiscard]] QIcon PredefinedIcon(const QString& key);

/// The empty picture that stands for "<NONE>" beside the desktop's own icons.
[[nodiscard]] QIcon BlankIcon();

/// The keys of the pictures of network nodes: the words for a node's type in lower case, and a few
/// more.
[[nodiscard]] QStringList NetworkIconKeys();

/// The picture for such a key, drawn for 16 pixels, and for the 32 pixels that those are on a dense
/// screen. Raises ErrorNumber::KeyNotFound for any other key.
[[nodiscard]] QIcon NetworkIcon(const QString& key);

/// The picture of computers on a network, drawn for 64 pixels.
[[nodiscard]] QIcon NetworkPicture();

/// The program's icon.
[[nodiscard]] QIcon ProgramIcon();

/// The small picture beside the search text that opens the menu of predefined kinds; greyed while
/// a job runs. Drawn for 20 pixels.
[[nodiscard]] QIcon FileKindsIcon(bool active);

/// The hidden picture, 360 by 240 logical pixels.
[[nodiscard]] QPixmap DudesPicture(qreal devicePixelRatio);

} // namespace netrove

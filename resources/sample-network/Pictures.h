#pragma once

#include <QByteArray>

namespace netrove::sample {

/// A JPEG picture of coloured tiles, 8 pixels a side; the same number gives the same picture.
[[nodiscard]] QByteArray TilePicture(int tilesAcross, int tilesDown, quint32 number);

} // namespace netrove::sample

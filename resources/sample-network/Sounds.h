#pragma once

#include <QByteArray>

namespace netrove::sample {

/// A RIFF wave file with a tone of that pitch, one channel of 8 bits, 8,000 samples a second.
[[nodiscard]] QByteArray ToneWave(int hertz, int milliseconds);

} // namespace netrove::sample

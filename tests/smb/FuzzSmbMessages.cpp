#include "smb/Frames.h"
#include "smb/SmbMessages.h"

#include <cstdint>
#include <cstdlib>

namespace {

/// What can be read can be written, and is then the same bytes.
template <typename Message>
void Check(const QByteArray& payload, std::optional<Message> (*decode)(const QByteArray&),
           QByteArray (*encode)(const Message&)) {
    const auto message = decode(payload);
    if (!message)
        return;
    const QByteArray again = encode(*message);
    const auto second = decode(again);
    if (!second || encode(*second) != again)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace netrove;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Check(bytes, &DecodeQuestion, &EncodeQuestion);
    Check(bytes, &DecodeAnswer, &EncodeAnswer);

    // The same as a stream that comes in two pieces.
    Frames frames;
    frames.Append(QByteArrayView(bytes).first(bytes.size() / 2));
    while (const auto payload = frames.Take())
        Check(*payload, &DecodeAnswer, &EncodeAnswer);
    frames.Append(QByteArrayView(bytes).sliced(bytes.size() / 2));
    while (const auto payload = frames.Take())
        Check(*payload, &DecodeQuestion, &EncodeQuestion);
    return 0;
}

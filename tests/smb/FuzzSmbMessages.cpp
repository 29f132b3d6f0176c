#include "fakes/Fuzz.h"
#include "smb/Frames.h"
#include "smb/SmbMessages.h"

namespace netrove {
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
    Require(second && encode(*second) == again);
}

} // namespace

void Fuzz(const QByteArray& bytes) {
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
}

} // namespace netrove

#include "discovery/HttpResponse.h"

#include <optional>

namespace netrove {
namespace {

using State = HttpResponse::State;

constexpr QByteArrayView LineEnd("\r\n");

/// What the head says about the length of the body.
struct Head {
    bool isSuccess = false;
    bool isChunked = false;
    std::optional<qsizetype> length;
};

std::optional<qsizetype> Number(QByteArrayView text, int base) {
    bool isNumber = false;
    const qlonglong number = text.trimmed().toLongLong(&isNumber, base);
    if (!isNumber || number < 0 || number > HttpResponse::MaxBytes)
        return std::nullopt;
    return static_cast<qsizetype>(number);
}

/// Nothing if the bytes aren't the head of an answer.
std::optional<Head> ParseHead(QByteArrayView bytes) {
    const QList<QByteArray> lines = bytes.toByteArray().replace("\r\n", "\n").split('\n');
    const QList<QByteArray> status = lines.first().simplified().split(' ');
    if (!status.first().startsWith("HTTP/1.") || status.size() < 2)
        return std::nullopt;
    Head head = {.isSuccess = status[1] == "200", .isChunked = false, .length = std::nullopt};
    for (const QByteArray& line : lines.sliced(1)) {
        const qsizetype colon = line.indexOf(':');
        const QByteArray name = line.first(qMax(colon, qsizetype{0})).trimmed().toLower();
        const QByteArray value = line.sliced(colon + 1).trimmed().toLower();
        if (name == "transfer-encoding" && value != "identity")
            head.isChunked = true;
        if (name == "content-length") {
            head.length = Number(value, 10);
            if (!head.length)
                return std::nullopt;
        }
    }
    return head;
}

HttpResponse Dechunk(QByteArrayView bytes) {
    HttpResponse response;
    for (;;) {
        const qsizetype end = bytes.indexOf(LineEnd);
        if (end < 0)
            return {};
        const QByteArrayView line = bytes.first(end);
        const qsizetype extension = line.indexOf(';');
        const auto size = Number(extension < 0 ? line : line.first(extension), 16);
        if (!size)
            return {.state = State::Refused, .body = {}};
        if (*size == 0) {
            response.state = State::Complete;
            return response;
        }
        bytes = bytes.sliced(end + LineEnd.size());
        if (bytes.size() < *size + LineEnd.size())
            return {};
        response.body += bytes.first(*size).toByteArray();
        bytes = bytes.sliced(*size + LineEnd.size());
    }
}

HttpResponse ParseSoFar(QByteArrayView bytes, bool isClosed) {
    constexpr QByteArrayView headEnd("\r\n\r\n");
    const qsizetype end = bytes.indexOf(headEnd);
    if (end < 0)
        return {};
    const auto head = ParseHead(bytes.first(end));
    if (!head || !head->isSuccess)
        return {.state = State::Refused, .body = {}};
    const QByteArrayView body = bytes.sliced(end + headEnd.size());
    if (head->isChunked)
        return Dechunk(body);
    if (head->length && body.size() >= *head->length)
        return {.state = State::Complete, .body = body.first(*head->length).toByteArray()};
    if (!head->length && isClosed)
        return {.state = State::Complete, .body = body.toByteArray()};
    return {};
}

} // namespace

HttpResponse HttpResponse::Parse(QByteArrayView bytes, bool isClosed) {
    HttpResponse response = bytes.size() > MaxBytes
                                ? HttpResponse{.state = State::Refused, .body = {}}
                                : ParseSoFar(bytes, isClosed);
    if (response.state == State::Incomplete && (isClosed || bytes.size() == MaxBytes))
        response.state = State::Refused;
    return response;
}

} // namespace netrove

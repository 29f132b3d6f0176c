#include "discovery/HttpResponse.h"

#include <cstdint>
#include <cstdlib>

/// An answer that is complete stays so, with the same body, when it comes in two parts; a body is
/// never longer than what came.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using netrove::HttpResponse;
    const QByteArray tail(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (const char* head :
         {"", "HTTP/1.1 200 OK\r\n", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"}) {
        const QByteArray bytes = head + tail;
        const HttpResponse open = HttpResponse::Parse(bytes, false);
        const HttpResponse closed = HttpResponse::Parse(bytes, true);
        if (closed.state == HttpResponse::State::Incomplete || closed.body.size() > bytes.size())
            std::abort();
        if (open.state == HttpResponse::State::Complete &&
            (closed.state != open.state || closed.body != open.body))
            std::abort();
    }
    return 0;
}

#include "discovery/HttpResponse.h"
#include "fakes/Fuzz.h"

/// An answer that is complete stays so, with the same body, when it comes in two parts; a body is
/// never longer than what came.
void netrove::Fuzz(const QByteArray& tail) {
    using enum HttpResponse::State;
    for (const char* head :
         {"", "HTTP/1.1 200 OK\r\n", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"}) {
        const QByteArray bytes = head + tail;
        const HttpResponse open = HttpResponse::Parse(bytes, false);
        const HttpResponse closed = HttpResponse::Parse(bytes, true);
        Require(closed.state != Incomplete && closed.body.size() <= bytes.size());
        Require(open.state != Complete || (closed.state == Complete && closed.body == open.body));
    }
}

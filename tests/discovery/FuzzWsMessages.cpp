#include "discovery/ComputerName.h"
#include "discovery/WsMessages.h"

#include <cstdint>
#include <cstdlib>

namespace {

namespace WsMessages = netrove::WsMessages;

/// A message with all parts that are read, around the text.
QByteArray Message(const QByteArray& text) {
    return "<s:Envelope xmlns:s='http://www.w3.org/2003/05/soap-envelope'"
           " xmlns:a='http://schemas.xmlsoap.org/ws/2004/08/addressing'"
           " xmlns:d='http://schemas.xmlsoap.org/ws/2005/04/discovery'"
           " xmlns:p='http://schemas.xmlsoap.org/ws/2006/02/devprof'"
           " xmlns:c='http://schemas.microsoft.com/windows/pub/2005/07'><s:Header>"
           "<a:RelatesTo>" +
           text +
           "</a:RelatesTo></s:Header><s:Body><d:ProbeMatch><a:EndpointReference><a:Address>" +
           text + "</a:Address></a:EndpointReference><d:XAddrs>" + text +
           "</d:XAddrs></d:ProbeMatch><p:Host><p:Types>c:Computer</p:Types><c:Computer>" + text +
           "</c:Computer></p:Host></s:Body></s:Envelope>";
}

void Check(const QByteArray& bytes) {
    const auto message = WsMessages::Parse(bytes);
    if (!message)
        return;
    for (const WsMessages::Device& device : message->devices) {
        const auto target =
            WsMessages::ChooseTarget(device.addresses, QStringLiteral("192.168.1.2"));
        if (target && (target->port == 0 || !target->path.startsWith('/') ||
                       target->path.contains(' ') || target->path.contains('\n')))
            std::abort();
        // What a device is called goes into questions, which must stay well-formed.
        if (!WsMessages::Parse(WsMessages::Resolve(QStringLiteral("id"), device.endpoint)) ||
            !WsMessages::Parse(WsMessages::Get(QStringLiteral("id"), device.endpoint)))
            std::abort();
    }
    if (message->computer && !netrove::IsComputerName(message->computer->name))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Check(bytes);
    Check(Message(bytes));
    return 0;
}

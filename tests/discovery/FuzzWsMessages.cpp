#include "discovery/ComputerName.h"
#include "discovery/WsMessages.h"
#include "fakes/Fuzz.h"

namespace netrove {
namespace {

/// A message with all parts that are read, around the text.
QByteArray Message(const QByteArray& text) {
    return QByteArray("<s:Envelope xmlns:s='http://www.w3.org/2003/05/soap-envelope'"
                      " xmlns:a='http://schemas.xmlsoap.org/ws/2004/08/addressing'"
                      " xmlns:d='http://schemas.xmlsoap.org/ws/2005/04/discovery'"
                      " xmlns:p='http://schemas.xmlsoap.org/ws/2006/02/devprof'"
                      " xmlns:c='http://schemas.microsoft.com/windows/pub/2005/07'><s:Header>"
                      "<a:RelatesTo>%1</a:RelatesTo></s:Header><s:Body><d:ProbeMatch>"
                      "<a:EndpointReference><a:Address>%1</a:Address></a:EndpointReference>"
                      "<d:XAddrs>%1</d:XAddrs></d:ProbeMatch><p:Host><p:Types>c:Computer</p:Types>"
                      "<c:Computer>%1</c:Computer></p:Host></s:Body></s:Envelope>")
        .replace("%1", text);
}

} // namespace

void Fuzz(const QByteArray& bytes) {
    for (const QByteArray& one : {bytes, Message(bytes)}) {
        const auto message = WsMessages::Parse(one).value_or(WsMessages::Message());
        for (const WsMessages::Device& device : message.devices) {
            const auto target =
                WsMessages::ChooseTarget(device.addresses, QStringLiteral("192.168.1.2"));
            Require(!target || (target->port != 0 && target->path.startsWith('/') &&
                                !target->path.contains(' ') && !target->path.contains('\n')));
            // What a device is called goes into questions, which must stay well-formed.
            const QString id = QStringLiteral("id");
            Require(WsMessages::Parse(WsMessages::Resolve(id, device.endpoint)).has_value());
            Require(WsMessages::Parse(WsMessages::Get(id, device.endpoint)).has_value());
        }
        Require(!message.computer || IsComputerName(message.computer->name));
    }
}

} // namespace netrove

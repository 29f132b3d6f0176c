#include "discovery/WsMessages.h"

#include "discovery/ComputerName.h"
#include "discovery/SocketAddress.h"
#include "runtime/SourceText.h"

#include <QUrl>
#include <QUuid>
#include <QXmlStreamReader>

#include <algorithm>

namespace netrove::WsMessages {
namespace {

constexpr QStringView Soap = u"http://www.w3.org/2003/05/soap-envelope";
constexpr QStringView Addressing = u"http://schemas.xmlsoap.org/ws/2004/08/addressing";
constexpr QStringView Discovery = u"http://schemas.xmlsoap.org/ws/2005/04/discovery";
constexpr QStringView Profile = u"http://schemas.xmlsoap.org/ws/2006/02/devprof";
constexpr QStringView Publication = u"http://schemas.microsoft.com/windows/pub/2005/07";

constexpr qsizetype MaxDepth = 32;
constexpr qsizetype MaxText = 4096;
constexpr qsizetype MaxId = 256;
constexpr std::size_t MaxDevices = 64;

/// The prefix "wsdp" is meant literally: hosts compare it as text.
constexpr char Envelope[] =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
    "<soap:Envelope xmlns:soap=\"http://www.w3.org/2003/05/soap-envelope\""
    " xmlns:wsa=\"http://schemas.xmlsoap.org/ws/2004/08/addressing\""
    " xmlns:wsd=\"http://schemas.xmlsoap.org/ws/2005/04/discovery\""
    " xmlns:wsdp=\"http://schemas.xmlsoap.org/ws/2006/02/devprof\">"
    "<soap:Header><wsa:To>%1</wsa:To><wsa:Action>%2</wsa:Action>"
    "<wsa:MessageID>%3</wsa:MessageID>%4</soap:Header><soap:Body>%5</soap:Body></soap:Envelope>";

QByteArray Text(const QString& to, const QString& action, const QString& messageId,
                const QString& header, const QString& body) {
    // In one call, so that a "%1" in one of the texts stays as it is.
    return QString::fromLatin1(Envelope)
        .arg(to.toHtmlEscaped(), action, messageId.toHtmlEscaped(), header, body)
        .toUtf8();
}

QByteArray ToAll(const char* action, const QString& messageId, const QString& body) {
    return Text(u"urn:schemas-xmlsoap-org:ws:2005:04:discovery"_s,
                Discovery + QLatin1String(action), messageId, QString(), body);
}

/// Goes through a message once and keeps the texts of the elements that matter.
class MessageReader {
public:
    explicit MessageReader(QByteArrayView bytes) : xml_(bytes.toByteArray()) {}

    std::optional<Message> Read() {
        while (!xml_.atEnd()) {
            const auto token = xml_.readNext();
            if (token == QXmlStreamReader::DTD || path_.size() > MaxDepth)
                return std::nullopt;
            if (token == QXmlStreamReader::StartElement && !Enter())
                return std::nullopt;
            if (token == QXmlStreamReader::Characters && text_.size() < MaxText)
                text_ += xml_.text();
            if (token == QXmlStreamReader::EndElement)
                Leave();
        }
        return xml_.hasError() ? std::nullopt : std::optional(message_);
    }

private:
    bool Enter() {
        if (path_.isEmpty() && !Is(Soap, u"Envelope"))
            return false;
        path_ += xml_.name().toString();
        text_.clear();
        if ((Is(Discovery, u"ProbeMatch") || Is(Discovery, u"ResolveMatch")) &&
            message_.devices.size() < MaxDevices)
            message_.devices.emplace_back();
        if (Is(Profile, u"Host"))
            hostIsComputer_ = false;
        return true;
    }

    void Leave() {
        path_.removeLast();
        const QString text = text_.trimmed();
        if (IsBelow(u"Header"))
            LeaveHeader(text);
        else if (IsBelow(u"ProbeMatch") || IsBelow(u"ResolveMatch"))
            LeaveMatch(text);
        else if (IsBelow(u"EndpointReference") && path_.contains("Body"_L1))
            LeaveEndpoint(text);
        else if (IsBelow(u"Host"))
            LeaveHost(text);
        text_.clear();
    }

    void LeaveHeader(const QString& text) {
        if (Is(Addressing, u"MessageID"))
            message_.id = text.left(MaxId);
        else if (Is(Addressing, u"RelatesTo"))
            message_.relatesTo = text.left(MaxId);
    }

    void LeaveMatch(const QString& text) {
        if (message_.devices.empty())
            return;
        Device& device = message_.devices.back();
        if (Is(Discovery, u"Types"))
            device.types = LocalNames(text);
        else if (Is(Discovery, u"XAddrs"))
            device.addresses = text.simplified().split(u' ', Qt::SkipEmptyParts);
    }

    void LeaveEndpoint(const QString& text) {
        if (Is(Addressing, u"Address") && !message_.devices.empty() && text.size() <= MaxId)
            message_.devices.back().endpoint = text;
    }

    void LeaveHost(const QString& text) {
        if (Is(Profile, u"Types"))
            hostIsComputer_ = LocalNames(text).contains("Computer"_L1);
        else if (Is(Publication, u"Computer") && hostIsComputer_ && !message_.computer)
            message_.computer = ParseComputer(text);
    }

    [[nodiscard]] bool Is(QStringView space, QStringView name) const {
        return xml_.name() == name && xml_.namespaceUri() == space;
    }
    [[nodiscard]] bool IsBelow(QStringView name) const {
        return !path_.isEmpty() && path_.last() == name;
    }

    static QStringList LocalNames(const QString& text) {
        QStringList names = text.simplified().split(u' ', Qt::SkipEmptyParts);
        for (QString& name : names)
            name = name.section(u':', -1);
        return names;
    }

    QXmlStreamReader xml_;
    QStringList path_; ///< of the elements that are open
    QString text_;     ///< of the element that is open
    bool hostIsComputer_ = false;
    Message message_;
};

} // namespace

QString NewId() {
    return "urn:uuid:"_L1 + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QByteArray Probe(const QString& messageId) {
    return ToAll("/Probe", messageId,
                 u"<wsd:Probe><wsd:Types>wsdp:Device</wsd:Types></wsd:Probe>"_s);
}

QByteArray Resolve(const QString& messageId, const QString& endpoint) {
    return ToAll("/Resolve", messageId,
                 "<wsd:Resolve><wsa:EndpointReference><wsa:Address>"_L1 + endpoint.toHtmlEscaped() +
                     "</wsa:Address></wsa:EndpointReference></wsd:Resolve>"_L1);
}

QByteArray Get(const QString& messageId, const QString& endpoint) {
    return Text(endpoint, u"http://schemas.xmlsoap.org/ws/2004/09/transfer/Get"_s, messageId,
                "<wsa:ReplyTo><wsa:Address>"_L1 + Addressing +
                    "/role/anonymous</wsa:Address></wsa:ReplyTo><wsa:From>"
                    "<wsa:Address>"_L1 +
                    NewId() + "</wsa:Address></wsa:From>"_L1,
                QString());
}

bool Device::MayBeComputer() const {
    return !endpoint.isEmpty() && (types.isEmpty() || types.contains("Computer"_L1));
}

std::optional<Message> Parse(QByteArrayView bytes) {
    constexpr qsizetype maxBytes = 65536;
    if (bytes.isEmpty() || bytes.size() > maxBytes)
        return std::nullopt;
    return MessageReader(bytes).Read();
}

std::optional<Computer> ParseComputer(const QString& text) {
    const auto separator = std::find_if(text.begin(), text.end(), [](QChar character) {
        return character == u'/' || character == u'\\';
    });
    const qsizetype length = separator - text.begin();
    Computer computer = {.name = text.first(length), .workgroup = std::nullopt};
    if (separator == text.end() || !IsComputerName(computer.name))
        return std::nullopt;
    const QString rest = text.sliced(length + 1);
    const QString group = rest.section(u':', 1);
    const QString kind = rest.section(u':', 0, 0);
    const auto is = [&kind](QLatin1String word) {
        return kind.compare(word, Qt::CaseInsensitive) == 0;
    };
    if ((is("Workgroup"_L1) || is("Domain"_L1)) && IsComputerName(group))
        computer.workgroup = group;
    return computer;
}

std::optional<Target> ChooseTarget(const QStringList& addresses, const QString& answeredFrom) {
    constexpr qsizetype maxPath = 512;
    constexpr int httpPort = 80;
    std::optional<Target> first;
    const auto sender =
        SocketAddress::Parse(answeredFrom.section(u'%', 0, 0), 0).value_or(SocketAddress());
    for (const QString& address : addresses) {
        const QUrl url(address, QUrl::StrictMode);
        const QByteArray path = url.path(QUrl::FullyEncoded).toLatin1();
        // Without a host ("http:name/path") the name is part of the path, which no request can
        // have.
        if (!url.isValid() || url.scheme() != "http"_L1 || url.host().isEmpty() ||
            path.size() > maxPath)
            continue;
        const Target target = {.port = static_cast<quint16>(url.port(httpPort)),
                               .path = path.isEmpty() ? QByteArray("/") : path};
        const auto host = SocketAddress::Parse(url.host().section(u'%', 0, 0), 0);
        if (target.port != 0 && host && *host == sender)
            return target;
        if (target.port != 0 && !first)
            first = target;
    }
    return first;
}

} // namespace netrove::WsMessages

#include "discovery/ComputerName.h"
#include "discovery/DnsSdText.h"
#include "discovery/HttpResponse.h"
#include "discovery/NetBiosPackets.h"
#include "discovery/WsMessages.h"
#include "fakes/Text.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

TEST(ComputerNameTest, OnlyNamesThatAreSafeInAPathAndOnAScreen) {
    for (const char* good : {"attic-2.local", "Büro", "a b", "192.168.1.2"})
        EXPECT_TRUE(IsComputerName(Text(good))) << good;
    for (const char* bad : {"", "..", "a/b", "a|b", " a", "a ", "a\nb", "a\x1b[1m"})
        EXPECT_FALSE(IsComputerName(Text(bad))) << bad;
    EXPECT_FALSE(IsComputerName(QString(256, u'a')));
}

// ---- WS-Discovery

/// As hosts write it.
QByteArray Message(const QByteArray& body, const QByteArray& header = {}) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
           "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\""
           " xmlns:a=\"http://schemas.xmlsoap.org/ws/2004/08/addressing\""
           " xmlns:d=\"http://schemas.xmlsoap.org/ws/2005/04/discovery\""
           " xmlns:p=\"http://schemas.xmlsoap.org/ws/2006/02/devprof\""
           " xmlns:pub=\"http://schemas.microsoft.com/windows/pub/2005/07\"><s:Header>"
           "<a:MessageID>urn:uuid:1</a:MessageID><a:RelatesTo> urn:uuid:2 </a:RelatesTo>" +
           header + "</s:Header><s:Body>" + body + "</s:Body></s:Envelope>";
}

TEST(WsMessagesTest, ReadsMatchesAndMetadata) {
    const auto message = WsMessages::Parse(
        Message("<d:ProbeMatches><d:ProbeMatch><a:EndpointReference><a:Address>urn:uuid:3"
                "</a:Address></a:EndpointReference><d:Types>p:Device pub:Computer</d:Types>"
                "<d:XAddrs>http://10.0.0.1:5357/x\n http://[fe80::1]:5357/y</d:XAddrs>"
                "</d:ProbeMatch><d:ProbeMatch><d:Types>p:Device print:Printer</d:Types>"
                "</d:ProbeMatch></d:ProbeMatches>",
                "<a:ReplyTo><a:Address>urn:other</a:Address></a:ReplyTo>"));
    ASSERT_TRUE(message);
    EXPECT_EQ(message->relatesTo, Text("urn:uuid:2"));
    ASSERT_EQ(message->devices.size(), 2U);
    const WsMessages::Device& computer = message->devices[0];
    EXPECT_EQ(computer.endpoint, Text("urn:uuid:3"));
    EXPECT_EQ(computer.addresses.join(u' '),
              Text("http://10.0.0.1:5357/x http://[fe80::1]:5357/y"));
    EXPECT_TRUE(computer.MayBeComputer());
    EXPECT_FALSE(message->devices[1].MayBeComputer());

    const auto metadata = WsMessages::Parse(
        Message("<p:Relationship><p:Host><p:Types>print:Printer</p:Types><pub:Computer>NO/NotJoined"
                "</pub:Computer></p:Host><p:Host><p:Types>pub:Computer</p:Types>"
                "<pub:Computer>ATTIC/Workgroup:A&amp;B</pub:Computer></p:Host></p:Relationship>"));
    ASSERT_TRUE(metadata && metadata->computer);
    EXPECT_EQ(metadata->computer->name, Text("ATTIC"));
    EXPECT_EQ(metadata->computer->workgroup, Text("A&B"));
}

TEST(WsMessagesTest, RefusesWhatNoAnswerIs) {
    QByteArray deep;
    for (int level = 0; level < 40; ++level)
        deep = "<x>" + deep + "</x>";
    const QByteArray bomb = "<!DOCTYPE b [<!ENTITY a \"aaaaaaaa\"><!ENTITY b \"&a;&a;&a;\">]>";
    const QByteArray good = Message("&lt;");
    ASSERT_TRUE(WsMessages::Parse(good));
    for (const QByteArray& bad :
         {QByteArray(), QByteArray("x"), good.chopped(1), QByteArray(good + "x"), Message("&b;"),
          Message(deep), good.mid(good.indexOf("?>") + 2).prepend(bomb), QByteArray("<Envelope/>"),
          QByteArray(good + QByteArray(65536, ' '))})
        EXPECT_FALSE(WsMessages::Parse(bad)) << bad.left(200).constData();
}

TEST(WsMessagesTest, ComputersTellTheirGroup) {
    for (const auto& [text, expected] : TextPairs{{"A/Workgroup:HOME", "A HOME"},
                                                  {"A\\Domain:D.X", "A D.X"},
                                                  {"A/NotJoined", "A none"},
                                                  {"A/Workgroup:x\\y", "A none"},
                                                  {"A", "none"},
                                                  {"../NotJoined", "none"}}) {
        const auto computer = WsMessages::ParseComputer(Text(text));
        const QString found =
            computer ? computer->name + u' ' + computer->workgroup.value_or(Text("none"))
                     : Text("none");
        EXPECT_EQ(found, Text(expected)) << text;
    }
}

TEST(WsMessagesTest, OnlyPortAndPathComeFromTheDevice) {
    const auto choose = [](const QStringList& addresses) {
        const auto target = WsMessages::ChooseTarget(addresses, Text("fe80::1%eth0"));
        return target ? std::to_string(target->port) + target->path.toStdString() : "none";
    };
    for (const auto& [addresses, target] :
         TextPairs{{"http://10.0.0.9:1/other http://[FE80:0::1]:2/own?q", "2/own"},
                   {"http://10.0.0.9", "80/"},
                   {"https://10.0.0.9/", "none"},
                   {"file:///etc/passwd http://10.0.0.9:1/other", "1/other"},
                   {"http://10.0.0.9:0/", "none"},
                   {"", "none"}})
        EXPECT_EQ(choose(Text(addresses).split(u' ', Qt::SkipEmptyParts)), target) << addresses;
    EXPECT_EQ(choose({Text("http://x:1/a b"), Text("http:http://10.0.0.1:80/")}), "none");
    EXPECT_EQ(choose({Text("http://x/") + QString(600, u'a')}), "none");
}

// ---- HTTP

TEST(HttpResponseTest, BodiesEndAsTheHeadSays) {
    using enum HttpResponse::State;
    const QByteArray chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    const struct {
        QByteArray bytes;
        HttpResponse::State open;
        HttpResponse::State closed;
        const char* body = "";
    } cases[] = {{"HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nabcd", Complete, Complete, "abc"},
                 {"HTTP/1.1 200 OK\r\ncontent-length:3\r\n\r\nab", Incomplete, Refused},
                 {"HTTP/1.0 200 OK\r\n\r\nabc", Incomplete, Complete, "abc"},
                 {chunked + "2;x=y\r\nab\r\n1\r\nc\r\n0\r\n\r\n", Complete, Complete, "abc"},
                 {chunked + "2\r\nab\r\n", Incomplete, Refused},
                 {chunked + "-2\r\nab\r\n", Refused, Refused},
                 {"HTTP/1.1 200 OK\r\nContent-Length: -1\r\n\r\n", Refused, Refused},
                 {"HTTP/1.1 302 Found\r\nLocation: http://10.0.0.9/\r\n\r\n", Refused, Refused},
                 {"", Incomplete, Refused}};
    for (const auto& [bytes, open, closed, body] : cases) {
        EXPECT_EQ(HttpResponse::Parse(bytes, false).state, open) << bytes.constData();
        const HttpResponse whole = HttpResponse::Parse(bytes, true);
        EXPECT_EQ(whole.state, closed) << bytes.constData();
        EXPECT_EQ(whole.body, body) << bytes.constData();
    }
    const QByteArray endless = "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(65536, 'x');
    EXPECT_EQ(HttpResponse::Parse(endless, false).state, Refused);
}

// ---- NetBIOS

/// An answer to a status request with these names: 15 characters, suffix, flags.
QByteArray Status(const QByteArrayList& names) {
    const QByteArray data = char(names.size()) + names.join();
    return QByteArray::fromHex("1234840000000001000000002043") +
           QByteArray("KAAAAAAAAAAAAAAAAAAAAAAA") + QByteArray(7, 'A') +
           QByteArray::fromHex("000021000100000000") + char(data.size() >> 8) +
           char(data.size() & 0xFF) + data;
}

QByteArray Name(const char* name, char suffix, bool isGroup) {
    return QByteArray(name).leftJustified(15, ' ') + suffix + (isGroup ? '\x84' : '\x04') + '\0';
}

TEST(NetBiosPacketsTest, ReadsTheNamesOfAComputer) {
    const auto reply = NetBiosPackets::Parse(
        Status({Name("ATTIC", 0x00, false), Name("HOME", 0x00, true), Name("ATTIC", 0x20, false),
                Name("\x01\x02__MSBROWSE__\x02", 0x01, true), Name("HOME", 0x1E, true)}));
    ASSERT_TRUE(reply);
    EXPECT_TRUE(reply->isStatus);
    EXPECT_EQ(reply->id, 0x1234);
    EXPECT_EQ(reply->computer, Text("ATTIC"));
    EXPECT_EQ(reply->workgroup, Text("HOME"));
    EXPECT_TRUE(reply->isMasterBrowser);

    const auto hostile = NetBiosPackets::Parse(
        Status({Name("A\\B", 0x20, false), Name("GROUP", 0x20, true), Name("..", 0x00, true)}));
    EXPECT_TRUE(hostile && hostile->computer.isEmpty() && hostile->workgroup.isEmpty());
}

TEST(NetBiosPacketsTest, RefusesWhatNoAnswerIs) {
    QByteArray name = QByteArray::fromHex("12348500000000010000000000002000"
                                          "0100000000000600000a000002");
    const auto found = NetBiosPackets::Parse(name);
    EXPECT_TRUE(found && !found->isStatus);
    const QByteArray status = Status({Name("ATTIC", 0x20, false)});
    for (qsizetype length = 0; length < status.size(); ++length)
        EXPECT_FALSE(NetBiosPackets::Parse(status.first(length))) << length;
    QByteArray moreNames = status;
    moreNames[moreNames.size() - 19] = 2;
    EXPECT_FALSE(NetBiosPackets::Parse(moreNames));
    EXPECT_FALSE(NetBiosPackets::Parse(NetBiosPackets::StatusRequest(0x1234)));
    name[3] = 3; // there is no such name
    EXPECT_FALSE(NetBiosPackets::Parse(name));
}

// ---- DNS-SD

TEST(DnsSdTextTest, NamesComeFromTheServiceOrTheHost) {
    const std::array<const char*, 3> cases[] = {{"FILER", "host1.local", "FILER"},
                                                {"Büro", "host1.local", "Büro"},
                                                {"Anna's files", "annas-mac.local", "annas-mac"},
                                                {"Anna's files", "", "Anna's files"},
                                                {"../x", "..", ""},
                                                {"a\\b", "nas.local", "nas"}};
    for (const auto& [service, host, name] : cases)
        EXPECT_EQ(DnsSdText::ComputerName(Text(service), Text(host)), Text(name)) << service;
    EXPECT_EQ(DnsSdText::Model({"a=b", "Model=MacSamba"}), Text("MacSamba"));
    EXPECT_EQ(DnsSdText::Model({"model=a\nb"}), QString());
    EXPECT_EQ(DnsSdText::Model({"models=x", "model"}), QString());
}

} // namespace
} // namespace netrove

#include "http/HttpReader.h"

#include "fakes/Text.h"
#include "http/WebServer.h"
#include "runtime/RunTimeError.h"
#include "runtime/Yield.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

#include <optional>

namespace netrove {
namespace {

const QByteArray Chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";

class HttpReaderTest : public testing::Test {
protected:
    HttpReaderTest() {
        qunsetenv("http_proxy");
        reader.emplace(HttpLimits{.time = std::chrono::seconds(10), .bytes = 1000, .redirects = 2});
    }

    /// The text of that page, "failed" where there is none.
    QString Read(const QString& address) {
        QString text = Text("failed");
        static_cast<void>(FailureOf([&] { text = reader->OpenURL(address); }));
        return text;
    }
    QString ReadAnswer(const QByteArray& answer) {
        server.Serve(Text("/page"), answer);
        return Read(server.Site() + Text("/page"));
    }

    WebServer server;
    std::optional<HttpReader> reader;
};

TEST_F(HttpReaderTest, GivesWholeAnswersAsText) {
    const std::pair<QByteArray, QString> cases[] = {
        {WebServer::Page(" a\xC3\xA4\r\n "), Text(" aä\r\n ")},
        {WebServer::Page("a\xE4"), Text("aä")},
        {WebServer::Page(QByteArray("a\0b", 3)), QString::fromUtf16(u"a\0b", 3)},
        {WebServer::Page(""), QString()},
        {WebServer::Page(QByteArray(1000, 'a')), QString(1000, u'a')},
        {"HTTP/1.0 200 OK\r\n\r\nto the end", Text("to the end")},
        {Chunked + "2\r\nab\r\n1\r\nc\r\n0\r\n\r\n", Text("abc")}};
    for (const auto& [answer, text] : cases)
        EXPECT_EQ(ReadAnswer(answer), text) << answer.constData();
    server.Serve(Text("/other"), WebServer::Redirect("page"));
    EXPECT_EQ(ReadAnswer(WebServer::Redirect("/other")), Text("failed")) << "in a circle";
    server.Serve(Text("/page"), WebServer::Page("there"));
    EXPECT_EQ(Read(server.Site() + Text("/other")), Text("there"));
}

TEST_F(HttpReaderTest, AllElseIsAFailure) {
    const QByteArray answers[] = {
        "",
        "TBS_VER 1.2.3",
        "HTTP/1.1 404 Not Found\r\nContent-Length: 3\r\n\r\nabc",
        "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc",
        WebServer::Page(QByteArray(1001, 'a')),
        WebServer::Page(QByteArray(2 << 20, 'a')),
        "HTTP/1.0 200 OK\r\n\r\n" + QByteArray(5000, 'a'),
        Chunked + QByteArray("10\r\n0123456789abcdef\r\n").repeated(100),
        WebServer::Redirect("file:///etc/passwd"),
        WebServer::Redirect("ftp://127.0.0.1/"),
        WebServer::Redirect("/page"),
        WebServer::Redirect("http://127.0.0.1:1/"),
    };
    for (const QByteArray& answer : answers)
        EXPECT_EQ(ReadAnswer(answer), Text("failed")) << answer.left(80).toStdString();
    for (const char* address : {"", "http:", "http://", "file:///etc/passwd", "http://127.0.0.1:1/",
                                "http://127.0.0.1:1/ a"})
        EXPECT_EQ(Read(Text(address)), Text("failed")) << address;
}

TEST_F(HttpReaderTest, TheWaitIsShownLimitedAndGivenUp) {
    server.Serve(Text("/half"), "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc",
                 WebServer::Ending::Silence);
    int passes = 0;
    bool goOn = true;
    const auto before = SetWaitingPass([&] { return ++passes < 5 || goOn; });
    QElapsedTimer clock;
    clock.start();
    reader.emplace(HttpLimits{.time = std::chrono::milliseconds(300)});
    EXPECT_EQ(Read(server.Site() + Text("/half")), Text("failed"));
    EXPECT_GE(clock.elapsed(), 300);
    EXPECT_GT(passes, 5);

    passes = 0;
    goOn = false;
    reader.emplace();
    EXPECT_EQ(Read(server.Site() + Text("/half")), Text("failed"));
    EXPECT_LT(clock.elapsed(), 5000);
    SetWaitingPass(before);
}

} // namespace
} // namespace netrove

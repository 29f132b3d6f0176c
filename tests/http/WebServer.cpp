#include "http/WebServer.h"

#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>

namespace netrove {
namespace {

constexpr qint64 MaxQuestion = 4096;

} // namespace
WebServer::WebServer() : thread_(QThread::create([this] { Run(); })) {
    thread_->start();
    port_.wait(0);
}

WebServer::~WebServer() {
    thread_->quit();
    thread_->wait();
}

QByteArray WebServer::Page(const QByteArray& body) {
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
           body;
}

QByteArray WebServer::Redirect(const QByteArray& where) {
    return "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + where + "\r\n\r\n";
}

/// Sockets are the server's children and close with it.
void WebServer::Run() {
    QTcpServer server;
    if (!server.listen(QHostAddress::LocalHost))
        qFatal("No port on loopback");
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket* client = server.nextPendingConnection();
        QObject::connect(client, &QTcpSocket::readyRead, client, [this, client] {
            if (client->peek(MaxQuestion).contains("\r\n\r\n"))
                Reply(*client);
        });
    });
    port_ = server.serverPort();
    port_.notify_all();
    QEventLoop().exec();
}

void WebServer::Reply(QTcpSocket& client) {
    const Answer answer = answers_.value(client.readAll().split(' ').value(1));
    client.write(answer.bytes);
    if (answer.ending == Ending::Close)
        client.disconnectFromHost();
}

} // namespace netrove

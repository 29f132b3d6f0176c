#include "http/WebServer.h"

#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>

namespace netrove {

WebServer::WebServer() : thread_(QThread::create([this] { Run(); })) {
    thread_->start();
    port_.wait(0);
}

WebServer::~WebServer() {
    thread_->quit();
    thread_->wait();
}

/// Sockets are the server's children and close with it.
void WebServer::Run() {
    QTcpServer server;
    if (!server.listen(QHostAddress::LocalHost))
        qFatal("No port on loopback");
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket* client = server.nextPendingConnection();
        QObject::connect(client, &QTcpSocket::readyRead, client, [this, client] {
            if (!client->peek(4096).contains("\r\n\r\n"))
                return;
            const Answer answer = answers_.value(client->readAll().split(' ').value(1));
            client->write(answer.bytes);
            if (answer.ending == Ending::Close)
                client->disconnectFromHost();
        });
    });
    port_ = server.serverPort();
    port_.notify_all();
    QEventLoop().exec();
}

} // namespace netrove

#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QThread>

#include <atomic>
#include <memory>

namespace netrove {

/// A web server on loopback, in a thread of its own, that answers with any bytes.
class WebServer {
public:
    enum class Ending { Close, Silence }; ///< of an answer: silent ones stay open

    WebServer();
    ~WebServer();

    [[nodiscard]] QString Site() const { return QStringLiteral("http://127.0.0.1:%1").arg(port_); }

    /// What a question for that path is answered with, to be told before it comes.
    void Serve(const QString& path, const QByteArray& answer, Ending ending = Ending::Close) {
        answers_.insert(path.toUtf8(), {answer, ending});
    }

    /// A whole answer with that body.
    static QByteArray Page(const QByteArray& body) {
        return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) +
               "\r\n\r\n" + body;
    }
    static QByteArray Redirect(const QByteArray& where) {
        return "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + where + "\r\n\r\n";
    }

private:
    struct Answer {
        QByteArray bytes;
        Ending ending = Ending::Close;
    };

    void Run();

    QHash<QByteArray, Answer> answers_;
    std::atomic<int> port_ = 0;
    std::unique_ptr<QThread> thread_;
};

} // namespace netrove

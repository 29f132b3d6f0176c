#include "http/HttpReader.h"

#include "platform/TextEncoding.h"
#include "runtime/ProgramVersion.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Yield.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QThread>
#include <QTimer>

#include <memory>
#include <optional>

namespace netrove {
namespace {

/// How often windows are painted during a wait.
constexpr std::chrono::milliseconds PaintInterval{20};

QNetworkRequest RequestFor(const QUrl& address, int redirects) {
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(redirects);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setHeader(QNetworkRequest::UserAgentHeader, QString("Netrove/"_L1 + ProgramVersion()));
    // The body isn't compressed, so that the bytes that arrive are those that the limit counts.
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

/// Reads in this thread, until the whole answer has come or the thread is to quit.
std::optional<QByteArray> Read(const QUrl& address, const HttpLimits& limits) {
    QNetworkAccessManager manager;
    const std::unique_ptr<QNetworkReply> reply(manager.get(RequestFor(address, limits.redirects)));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QObject::connect(reply.get(), &QNetworkReply::readyRead, reply.get(), [&] {
        if (reply->bytesAvailable() > limits.bytes)
            reply->abort();
    });
    QTimer::singleShot(limits.time, reply.get(), &QNetworkReply::abort);
    if (!reply->isFinished())
        loop.exec();
    if (!reply->isFinished() || reply->error() != QNetworkReply::NoError)
        return std::nullopt;
    QByteArray body = reply->readAll();
    const QVariant length = reply->header(QNetworkRequest::ContentLengthHeader);
    if (body.size() > limits.bytes || (length.isValid() && length.toLongLong() != body.size()))
        return std::nullopt;
    return body;
}

} // namespace

QString HttpReader::OpenURL(const QString& address) {
    if (!IsWebAddress(address))
        throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    std::optional<QByteArray> body;
    const std::unique_ptr<QThread> reading(
        QThread::create([&] { body = Read(QUrl(address, QUrl::StrictMode), limits_); }));
    reading->start();
    while (!reading->wait(QDeadlineTimer(PaintInterval))) {
        if (!WhileWaiting())
            reading->quit();
    }
    if (!body)
        throw RunTimeError(ErrorNumber::DeviceUnavailable);
    return FromUtf8OrWindows1252(*body);
}

} // namespace netrove

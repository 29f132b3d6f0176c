#include "redirector/SmbPool.h"

#include "redirector/LogonUse.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cerrno>

namespace netrove {

QString SmbPool::DefaultHelper() {
    const QString name = QStringLiteral("netrove-smb");
    const QString folder = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    const QString beside = folder + name;
    return QFileInfo(beside).isExecutable() ? beside
                                            : folder + QLatin1String("../libexec/netrove/") + name;
}

int SmbPool::Run(const SmbRequest& request, const SmbWorker::Part& part,
                 const std::stop_token& stop, const Reached& reached) {
    auto turn = connections_.Await(request, stop);
    return turn ? Run(std::move(turn), request, part, stop, reached) : ECANCELED;
}

int SmbPool::Run(Turn turn, const SmbRequest& request, const SmbWorker::Part& part,
                 const std::stop_token& stop, const Reached& reached) {
    const auto exchange = [&](const SmbRequest& asked) {
        return SmbExchange(connections_, *turn, asked, part, stop).Run(reached);
    };
    if (turn->kind == SmbConnections::Right::Kind::None || !logons_)
        return exchange(request);
    SmbRequest asked = request;
    LogonUse use(logons_.get(), asked, stop);
    return use.Status() != 0 ? use.Status() : use.End(exchange(asked));
}

SmbPool::Turn SmbPool::TryTakeEarlyTurn(const SmbRequest& request) {
    if (logons_ && !logons_->IsSafe(request))
        return {};
    return connections_.TryTakeEarly(request);
}

} // namespace netrove

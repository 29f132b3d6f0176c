#include "redirector/SmbPool.h"

#include "redirector/LogonUse.h"
#include "runtime/SourceText.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cerrno>

namespace netrove {

QString SmbPool::DefaultHelper() {
    const QString name = u"netrove-smb"_s;
    const QString folder = QCoreApplication::applicationDirPath() + u'/';
    const QString beside = folder + name;
    return QFileInfo(beside).isExecutable() ? beside : folder + "../libexec/netrove/"_L1 + name;
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

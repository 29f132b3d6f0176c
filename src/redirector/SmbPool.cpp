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

int SmbPool::Run(const SmbRequest& request, const SmbWorker::Part& part, const Reached& reached) {
    auto turn = turns_.Await(request);
    return turn ? Run(std::move(*turn), request, part, reached) : ECANCELED;
}

int SmbPool::Run(Turn turn, const SmbRequest& request, const SmbWorker::Part& part,
                 const Reached& reached) {
    if (turn.Which() == Turn::Kind::None || !logons_)
        return SmbExchange(turns_, turn, request, part).Run(reached);
    SmbRequest asked = request;
    LogonUse use(logons_.get(), asked);
    return use.Status() != 0 ? use.Status()
                             : use.End(SmbExchange(turns_, turn, asked, part).Run(reached));
}

std::optional<SmbPool::Turn> SmbPool::TryTakeEarlyTurn(const SmbRequest& request) {
    if (logons_ && !logons_->IsSafe(request))
        return std::nullopt;
    return turns_.TryTakeEarly(request);
}

} // namespace netrove

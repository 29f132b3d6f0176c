#include "redirector/SmbServers.h"

#include "runtime/Names.h"

#include <algorithm>
#include <cerrno>

namespace netrove {
namespace {

/// Requests in a row that a dead server leaves without an answer. A single one may be for a folder
/// that is too big for the time limit.
constexpr int MaxTimeouts = 2;

/// What one more connection costs beside the work, measured in answers: it takes about twelve round
/// trips, a folder four.
constexpr double OpeningAnswers = 3;

/// A server whose answers take at least so many milliseconds counts as distant: most of that time
/// neither side works. A near server is kept fully busy by a few connections.
constexpr double Distant = 3;
constexpr std::size_t MostWhenNear = 4;

/// How many folders to expect for each one that is known. That is a bet: most trees are wide. It is
/// cheap to lose with a distant server.
constexpr double HopeWhenDistant = 4;

/// A server whose first answer takes so long is distant. That of a near one takes some 5 ms, most
/// of them to start a process for the connection.
constexpr std::chrono::milliseconds DistantGreeting{9};

/// Whether a failed connection says that no server is there. One that refuses it is there.
bool IsSilence(int status) {
    switch (status) {
    case ETIMEDOUT:
    case EHOSTUNREACH:
    case EHOSTDOWN:
    case ENETUNREACH:
    case ENETDOWN:
        return true;
    default:
        return false;
    }
}

/// How much of the way to a longer answer's time the kept one moves.
constexpr double Rise = 0.05;

} // namespace

QString SmbServers::NameOf(const SmbRequest& request) {
    return NameKey(request.host) + u':' + QString::number(request.port);
}

void SmbServers::BeginWalk() {
    dead_->BeginWalk();
    for (Server& server : servers_)
        server.timeouts = 0;
}

void SmbServers::Bury(const QString& name, int status) {
    // Several requests that were under way fail together; that is one death.
    if (DeadStatus(name) != 0)
        return;
    servers_[name].timeouts = 0;
    dead_->Bury(name, status, status == ECONNREFUSED ? Time(0) : limits_.deadFor);
}

void SmbServers::Note(const QString& name, int status, bool isLong) {
    Server& server = servers_[name];
    if (status == 0)
        dead_->Revive(name);
    if (status != ETIMEDOUT && status != ECANCELED)
        server.timeouts = 0;
    else if (status == ETIMEDOUT && isLong && DeadStatus(name) == 0 &&
             ++server.timeouts == MaxTimeouts)
        Bury(name, status);
}

bool SmbServers::BeginProbe(const QString& name, Clock::time_point since) {
    Server& server = servers_[name];
    if (server.probed || now_() - std::max(since, server.lastSign) < limits_.silence)
        return false;
    server.probed = now_();
    return true;
}

void SmbServers::EndProbe(const QString& name, int status) {
    Server& server = servers_[name];
    const bool hasSpoken = server.lastSign >= server.probed;
    server.probed.reset();
    if (status == ECANCELED || hasSpoken)
        return;
    if (IsSilence(status))
        Bury(name, ETIMEDOUT);
    else
        NoteSign(name);
}

bool SmbServers::TakesMore(const QString& name, std::size_t waiting) {
    const Server& server = servers_[name];
    const bool isDistant = server.answer >= Distant;
    std::size_t most =
        isDistant ? limits_.maxPerServer : std::min(limits_.maxPerServer, MostWhenNear);
    if (server.refusedAt > 0 && now_() - server.refused <= limits_.refusedFor)
        most = std::min(most, server.refusedAt - 1);
    if (server.open >= most)
        return false;
    const std::chrono::duration<double, std::milli> work = limits_.opening;
    const double hope = isDistant ? HopeWhenDistant : 1;
    return static_cast<double>(waiting) * hope * server.answer >=
           static_cast<double>(server.open) * (work.count() + OpeningAnswers * server.answer);
}

bool SmbServers::TakesEarly(const QString& name) {
    const Server& server = servers_[name];
    return server.open > 0 && server.open < limits_.maxPerServer && server.answer == 0 &&
           !server.hasFailedEarly && server.greeting >= DistantGreeting;
}

void SmbServers::NoteRefused(const QString& name) {
    Server& server = servers_[name];
    server.refusedAt = std::max<std::size_t>(server.open, 2);
    server.refused = now_();
}

void SmbServers::NoteClosed(const QString& name) {
    Server& server = servers_[name];
    if (--server.open == 0)
        server.isProven = false;
}

/// Short times count in full, long ones only a little: they may just mean that this machine is
/// busy.
void SmbServers::NoteAnswerTime(const QString& name, Clock::duration time) {
    double& answer = servers_[name].answer;
    const double milliseconds = std::chrono::duration<double, std::milli>(time).count();
    answer = answer == 0 || milliseconds < answer ? milliseconds
                                                  : answer + Rise * (milliseconds - answer);
}

/// The time without the work is that of answers: the connection's and the folder's.
void SmbServers::NoteFirstTime(const QString& name, Clock::duration time) {
    double& answer = servers_[name].answer;
    const std::chrono::duration<double, std::milli> waited = time - limits_.firstOpening;
    if (answer == 0 && waited.count() > 0)
        answer = waited.count() / (OpeningAnswers + 1);
}

void SmbServers::ForgetOld() {
    servers_.removeIf([](const auto& one) {
        return one->open == 0 && one->urgent == 0 && one->timeouts == 0 && one->refusedAt == 0;
    });
}

} // namespace netrove

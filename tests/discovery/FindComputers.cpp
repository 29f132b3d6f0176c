#include "discovery/ComputerFinder.h"

#include <QElapsedTimer>
#include <QHash>

#include <cstdio>

#include <poll.h>

namespace {

using netrove::FoundBy;
using netrove::FoundComputer;

/// Time in milliseconds, name, workgroup, port, ways, model, addresses: names and texts from the
/// network have no control character.
void Print(const FoundComputer& computer, qint64 time) {
    QStringList ways;
    for (const auto& [way, name] : {std::pair(FoundBy::WsDiscovery, "ws-discovery"),
                                    {FoundBy::NetBios, "netbios"},
                                    {FoundBy::DnsSd, "dns-sd"}}) {
        if (computer.foundBy.testFlag(way))
            ways += QString::fromLatin1(name);
    }
    const QStringList fields{
        QString::number(time),          computer.name,   computer.workgroup.value_or(QString()),
        QString::number(computer.port), ways.join(u','), computer.model,
        computer.addresses.join(u' ')};
    std::puts(fields.join(u'\t').toUtf8().constData());
}

} // namespace

/// Finds the computers of the LAN once. Prints each with the time at which it was as complete as in
/// the end, then "end" and the time of the end.
int main() {
    netrove::ComputerFinder finder;
    QElapsedTimer clock;
    clock.start();
    finder.Start();
    QHash<QString, std::pair<FoundComputer, qint64>> last;
    bool isRunning = true;
    while (isRunning) {
        pollfd news = {.fd = finder.Descriptor(), .events = POLLIN, .revents = 0};
        poll(&news, 1, -1);
        isRunning = finder.IsRunning();
        for (const FoundComputer& computer : finder.Found()) {
            auto& known = last[computer.name];
            if (known.first != computer)
                known = {computer, clock.elapsed()};
        }
    }
    for (const FoundComputer& computer : finder.Found())
        Print(computer, last.value(computer.name).second);
    std::printf("end\t%lld\n", static_cast<long long>(clock.elapsed()));
    return 0;
}

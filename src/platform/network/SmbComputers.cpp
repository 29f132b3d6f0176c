#include "platform/network/SmbComputers.h"

#include "platform/network/WaitingPoll.h"

#include <algorithm>
#include <array>
#include <utility>

namespace netrove {
namespace {

using namespace std::chrono_literals;

constexpr QLatin1String Unknown("WORKGROUP");

/// Far longer than any look.
constexpr auto LongestLook = 10s;

bool SameName(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// An address of one link alone means something only together with an interface, which not
/// everybody who is given the address can say.
bool IsOfOneLink(const QString& address) {
    return address.contains(QLatin1Char('%'));
}

SmbHost HostOf(const FoundComputer& computer) {
    const auto address =
        std::find_if_not(computer.addresses.begin(), computer.addresses.end(), IsOfOneLink);
    return {.name = computer.name,
            .workgroup = computer.workgroup,
            .address = address == computer.addresses.end() ? computer.addresses.value(0) : *address,
            .port = computer.port};
}

} // namespace

SmbComputers::SmbComputers(const std::vector<SmbHost>& hosts,
                           std::unique_ptr<ComputerSource> source,
                           std::function<Clock::time_point()> now)
    : configured_(hosts), source_(std::move(source)), now_(std::move(now)) {
    Merge();
}

bool SmbComputers::Look() {
    if (!source_)
        return true;
    if (!source_->IsRunning())
        TakeFound();
    const bool isFresh = looked_ && now_() - *looked_ <= Fresh;
    if (!source_->IsRunning()) {
        source_->Start();
        begun_ = now_();
    }
    if (isFresh)
        return true;
    WaitingPoll waiting(LongestLook);
    while (source_->IsRunning()) {
        std::array<pollfd, 1> descriptors{
            {{.fd = source_->Descriptor(), .events = POLLIN, .revents = 0}}};
        if (waiting.Wait(descriptors) != 0)
            return false;
        static_cast<void>(source_->Found()); // makes the descriptor wait for more
    }
    TakeFound();
    return true;
}

void SmbComputers::TakeFound() {
    if (!begun_)
        return;
    looked_ = std::exchange(begun_, std::nullopt);
    for (const FoundComputer& computer : source_->Found())
        found_.insert(computer.name.toCaseFolded(), {HostOf(computer), *looked_});
    found_.removeIf([&](const auto& one) { return *looked_ - one->seen > Kept; });
    Merge();
}

void SmbComputers::Merge() {
    all_.clear();
    places_.clear();
    for (const SmbHost& host : configured_) {
        if (!Find(host.name))
            Add(host);
    }
    for (const auto& [host, seen] : found_) {
        const auto place = places_.constFind(host.name.toCaseFolded());
        if (place == places_.cend()) {
            Add(host);
            continue;
        }
        SmbHost& configured = all_[*place];
        if (!configured.workgroup)
            configured.workgroup = host.workgroup;
        if (configured.address.isEmpty()) {
            configured.address = host.address;
            configured.port = host.port;
        }
    }
}

void SmbComputers::Add(const SmbHost& host) {
    places_.insert(host.name.toCaseFolded(), all_.size());
    all_.push_back(host);
}

const SmbHost* SmbComputers::Find(const QString& name) const {
    const auto place = places_.constFind(name.toCaseFolded());
    return place == places_.cend() ? nullptr : &all_[*place];
}

QStringList SmbComputers::Workgroups() const {
    QStringList workgroups;
    for (const SmbHost& host : all_) {
        const QString workgroup = WorkgroupOf(host);
        if (!workgroups.contains(workgroup, Qt::CaseInsensitive))
            workgroups.append(workgroup);
    }
    return workgroups;
}

std::vector<const SmbHost*> SmbComputers::In(const QString& workgroup) const {
    std::vector<const SmbHost*> hosts;
    for (const SmbHost& host : all_) {
        if (SameName(WorkgroupOf(host), workgroup))
            hosts.push_back(&host);
    }
    return hosts;
}

QString SmbComputers::WorkgroupOf(const SmbHost& host) const {
    return host.workgroup ? *host.workgroup : told_.value(host.name.toCaseFolded(), Unknown);
}

void SmbComputers::NoteWorkgroup(const QString& computer, const QString& workgroup) {
    told_.insert(computer.toCaseFolded(), workgroup);
}

} // namespace netrove

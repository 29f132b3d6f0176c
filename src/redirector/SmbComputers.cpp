#include "redirector/SmbComputers.h"

#include "runtime/Names.h"
#include "runtime/Waiting.h"

#include <algorithm>
#include <array>

namespace netrove {
namespace {

using namespace std::chrono_literals;

constexpr QLatin1String Unknown("WORKGROUP");

/// Far longer than any look.
constexpr auto LongestLook = 10s;

SmbHost HostOf(const FoundComputer& computer) {
    const auto address = std::find_if_not(computer.addresses.begin(), computer.addresses.end(),
                                          SmbComputers::IsOfOneLink);
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

bool SmbComputers::IsOfOneLink(const QString& address) {
    return address.contains(u'%');
}

bool SmbComputers::Look(const std::function<void()>& onNews) {
    if (!source_)
        return true;
    NoteEnd();
    // With no computer known there is nothing to give out, so this call must wait for the look.
    const bool mustWait = !walkBegun_ && all_.empty();
    if (!begun_ && !mustWait && Serves(New))
        return true;
    Begin();
    if (mustWait && !AwaitEnd(onNews))
        return false;
    while (!Serves(Fresh)) {
        if (!AwaitEnd(onNews))
            return false;
        if (!Serves(Fresh))
            Begin(); // the look that has just ended began before the search
    }
    return true;
}

bool SmbComputers::Serves(Clock::duration age) const {
    return looked_ && now_() - *looked_ <= age &&
           (!walkBegun_ || *looked_ >= *walkBegun_ - Current);
}

void SmbComputers::Begin() {
    if (begun_)
        return;
    source_->Start();
    begun_ = now_();
}

bool SmbComputers::AwaitEnd(const std::function<void()>& onNews) {
    Waiting waiting(LongestLook);
    while (source_->IsRunning()) {
        if (onNews)
            onNews();
        std::array<pollfd, 1> descriptors{
            {{.fd = source_->Descriptor(), .events = POLLIN, .revents = 0}}};
        if (waiting.ForDescriptors(descriptors) != 0)
            return false;
        TakeFound(*begun_);
    }
    NoteEnd();
    return true;
}

void SmbComputers::NoteEnd() {
    if (!begun_ || source_->IsRunning())
        return;
    looked_ = begun_;
    begun_.reset();
    TakeFound(*looked_);
}

void SmbComputers::TakeFound(Clock::time_point seen) {
    for (const FoundComputer& computer : source_->Found())
        found_.insert(NameKey(computer.name), {HostOf(computer), seen});
    found_.removeIf([&](const auto& one) { return seen - one->seen > Kept; });
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
        const auto place = places_.constFind(NameKey(host.name));
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
    places_.insert(NameKey(host.name), all_.size());
    all_.push_back(host);
}

const SmbHost* SmbComputers::Find(const QString& name) const {
    const auto place = places_.constFind(NameKey(name));
    return place == places_.cend() ? nullptr : &all_[*place];
}

std::optional<ServerAddress> SmbComputers::AddressOf(const QString& name) const {
    const SmbHost* host = Find(name);
    const bool isConfigured = std::ranges::any_of(configured_, [&](const SmbHost& one) {
        return IsSameName(one.name, name) && !one.address.isEmpty();
    });
    if (!host || (!isConfigured && host->port == SmbHost().port))
        return std::nullopt;
    return ServerAddress{.host = host->address, .port = host->port};
}

QStringList SmbComputers::Workgroups() const {
    QStringList workgroups;
    for (const SmbHost& host : all_) {
        const QString workgroup = WorkgroupOf(host);
        if (std::ranges::none_of(workgroups,
                                 [&](const QString& one) { return IsSameName(one, workgroup); }))
            workgroups.append(workgroup);
    }
    return workgroups;
}

std::vector<const SmbHost*> SmbComputers::In(const QString& workgroup) const {
    std::vector<const SmbHost*> hosts;
    for (const SmbHost& host : all_) {
        if (IsSameName(WorkgroupOf(host), workgroup))
            hosts.push_back(&host);
    }
    return hosts;
}

QString SmbComputers::WorkgroupOf(const SmbHost& host) const {
    return host.workgroup ? *host.workgroup : told_.value(NameKey(host.name), Unknown);
}

void SmbComputers::NoteWorkgroup(const QString& computer, const QString& workgroup) {
    told_.insert(NameKey(computer), workgroup);
}

} // namespace netrove

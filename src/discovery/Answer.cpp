#include "discovery/Answer.h"

#include "runtime/Names.h"

#include <QHash>

#include <algorithm>
#include <tuple>

namespace netrove {
namespace {

/// The rank of an address: IPv4, then IPv6, then IPv6 of one link alone.
int Kind(const QString& address) {
    return address.contains(u'%') ? 2 : address.contains(u':') ? 1 : 0;
}

class Merger {
public:
    void Add(const Answer& answer) {
        const int index = IndexOf(answer);
        if (index < 0)
            return;
        Known& known = known_[static_cast<std::size_t>(index)];
        known.computer.foundBy |= answer.foundBy;
        known.computer.isMasterBrowser |= answer.isMasterBrowser;
        if (!known.computer.workgroup)
            known.computer.workgroup = answer.workgroup;
        if (known.computer.model.isEmpty())
            known.computer.model = answer.model;
        if (answer.port != 0 && !known.hasPort) {
            known.computer.port = answer.port;
            known.hasPort = true;
        }
        QStringList& addresses = known.computer.addresses;
        if (!answer.address.isEmpty() && !addresses.contains(answer.address) &&
            addresses.size() < MaxAddresses) {
            addresses += answer.address;
            if (!byAddress_.contains(answer.address))
                byAddress_.insert(answer.address, index);
        }
    }

    std::vector<FoundComputer> Computers() {
        std::vector<FoundComputer> computers;
        for (Known& known : known_) {
            QStringList& addresses = known.computer.addresses;
            std::sort(
                addresses.begin(), addresses.end(), [](const QString& left, const QString& right) {
                    return std::make_tuple(Kind(left), left) < std::make_tuple(Kind(right), right);
                });
            computers.push_back(std::move(known.computer));
        }
        std::sort(computers.begin(), computers.end(),
                  [](const FoundComputer& left, const FoundComputer& right) {
                      return NameKey(left.name) < NameKey(right.name);
                  });
        return computers;
    }

private:
    struct Known {
        FoundComputer computer;
        bool hasPort = false;
    };

    /// More addresses than a computer has; further ones are ignored.
    static constexpr qsizetype MaxAddresses = 16;

    /// The index of the computer that the answer is about, which is added if it isn't known yet; -1
    /// where the answer makes no computer.
    int IndexOf(const Answer& answer) {
        const QString name = NameKey(answer.name);
        if (const auto same = byName_.constFind(name); same != byName_.cend())
            return *same;
        // Two names that came from one address the same way are two computers, as one host may
        // speak for several: so the known one is the same only if it didn't come this way.
        if (const auto same = byAddress_.constFind(answer.address); same != byAddress_.cend()) {
            const Known& known = known_[static_cast<std::size_t>(*same)];
            if (!known.computer.foundBy.testFlag(answer.foundBy)) {
                byName_.insert(name, *same);
                return *same;
            }
        }
        if (!answer.sharesFiles)
            return -1;
        const int index = static_cast<int>(known_.size());
        known_.emplace_back().computer.name = answer.name;
        byName_.insert(name, index);
        return index;
    }

    std::vector<Known> known_;
    QHash<QString, int> byName_;
    QHash<QString, int> byAddress_;
};

} // namespace

bool Answer::operator<(const Answer& other) const {
    const auto key = [](const Answer& answer) {
        return std::tie(answer.foundBy, answer.name, answer.address, answer.port,
                        answer.sharesFiles, answer.workgroup, answer.isMasterBrowser, answer.model);
    };
    return key(*this) < key(other);
}

std::vector<FoundComputer> MergeAnswers(const Answers& answers) {
    Merger merger;
    for (const bool sharesFiles : {true, false}) {
        for (const Answer& answer : answers) {
            if (answer.sharesFiles == sharesFiles)
                merger.Add(answer);
        }
    }
    return merger.Computers();
}

} // namespace netrove

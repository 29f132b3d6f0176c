#include "redirector/NetworkReachTest.h"

#include <algorithm>
#include <limits>

namespace netrove {
namespace {

constexpr std::size_t MostThreads = 16;

} // namespace

void NetworkReachTest::Begin(const QStringList& names) {
    Cancel();
    end_ = std::stop_source();
    for (const QString& name : names) {
        const auto path = UncPath::Parse(name);
        if (!path)
            continue;
        if (auto place = network_.RemotePlaceOf(*path)) {
            questions_.push_back({name, std::move(place)});
            waitedFor_.insert(name);
        } else {
            AskHere(*path);
        }
    }
    for (std::size_t count = std::min(questions_.size(), MostThreads); count > 0; --count)
        threads_.emplace_back([this] { Work(end_.get_token()); });
}

void NetworkReachTest::Cancel() {
    end_.request_stop();
    threads_.clear();
    connections_.Close();
    questions_.clear();
    answers_.clear();
    waitedFor_.clear();
    next_ = 0;
}

/// Asks the network, which notes the answer in its report itself.
void NetworkReachTest::AskHere(const UncPath& path) {
    if (!path.Share().isEmpty()) {
        static_cast<void>(network_.CanEnter(path.Text()));
        return;
    }
    if (const auto record = network_.Record(path))
        static_cast<void>(Below(*record));
}

void NetworkReachTest::Work(const std::stop_token& stop) {
    for (std::size_t at = next_++; at < questions_.size() && !stop.stop_requested(); at = next_++) {
        const auto& [name, place] = questions_[at];
        const QString trouble = place->Trouble(connections_, stop);
        if (stop.stop_requested())
            return;
        const std::lock_guard lock(mutex_);
        answers_.push_back({name, trouble});
    }
}

void NetworkReachTest::TakeAnswers() {
    std::vector<Answer> answers;
    {
        const std::lock_guard lock(mutex_);
        answers.swap(answers_);
    }
    for (const auto& [name, trouble] : answers) {
        waitedFor_.remove(name);
        if (!IsInReport(name)) // another search has begun
            continue;
        if (trouble.isEmpty())
            network_.Report().NoteAnswer(name);
        else
            network_.Report().NoteSilence(name, trouble);
    }
}

bool NetworkReachTest::IsInReport(const QString& name) {
    return std::ranges::any_of(network_.Report().All(),
                               [&](const NotSearched& one) { return one.name == name; });
}

int NetworkReachTest::CountComputers() {
    int count = 0;
    std::vector<NetRecord> open(1); // the root
    while (!open.empty()) {
        const NetRecord node = open.back();
        open.pop_back();
        for (const NetRecord& record : Below(node)) {
            if (record.dwDisplayType == NetEnum::DisplayServer)
                ++count;
            else
                open.push_back(record);
        }
    }
    return count;
}

std::vector<NetRecord> NetworkReachTest::Below(const NetRecord& node) {
    NetEnum::Handle handle = 0;
    if (network_.OpenEnum(NetEnum::ScopeGlobalNet, NetEnum::TypeDisk, NetEnum::UsageAll, node,
                          handle) != NetEnum::NoError)
        return {};
    std::vector<NetRecord> records;
    qint32 count = NetEnum::CountAll;
    quint32 size = std::numeric_limits<quint32>::max();
    static_cast<void>(network_.EnumResource(handle, count, records, size));
    network_.CloseEnum(handle);
    return records;
}

} // namespace netrove

#include "redirector/RecentLists.h"

#include <algorithm>

namespace netrove {

void RecentLists::Keep(const QString& key, SmbList list, Age age) {
    ForgetOld();
    const auto known =
        std::find_if(kept_.begin(), kept_.end(), [&](const Kept& one) { return one.key == key; });
    if (known != kept_.end())
        Forget(known);
    const std::size_t count = SizeOf(list);
    if (count > MaxEntries)
        return;
    while (entries_ + count > MaxEntries)
        Forget(std::prev(kept_.end()));
    const auto now = now_();
    kept_.push_front(
        {.key = key, .list = std::move(list), .age = age, .made = now, .used = now, .places = {}});
    entries_ += count;
}

const SmbList* RecentLists::Find(const QString& key) {
    const Kept* kept = Use(key);
    return kept ? &kept->list : nullptr;
}

void RecentLists::Clear() {
    kept_.clear();
    entries_ = 0;
}

std::optional<SmbEntry> RecentLists::FindEntry(const QString& folder, const QString& name) {
    Kept* kept = Use(folder);
    if (!kept || !kept->list.entries)
        return std::nullopt;
    const SmbEntries& entries = *kept->list.entries;
    if (kept->places.isEmpty()) {
        kept->places.reserve(static_cast<qsizetype>(entries.size()));
        for (std::size_t place = 0; place < entries.size(); ++place)
            kept->places.insert(entries[place].name, place);
    }
    const auto place = kept->places.constFind(name);
    return place == kept->places.cend() ? std::nullopt : std::optional(entries[*place]);
}

RecentLists::Kept* RecentLists::Use(const QString& key) {
    const auto found =
        std::find_if(kept_.begin(), kept_.end(), [&](const Kept& one) { return one.key == key; });
    const auto now = now_();
    if (found == kept_.end() || IsOld(*found, now))
        return nullptr;
    found->used = now;
    kept_.splice(kept_.begin(), kept_, found);
    return &kept_.front();
}

std::size_t RecentLists::SizeOf(const SmbList& list) {
    return list.shares.size() + (list.entries ? list.entries->size() : 0);
}

bool RecentLists::IsOld(const Kept& kept, Clock::time_point now) {
    return now - kept.used > kept.age.rest || now - kept.made > kept.age.most;
}

void RecentLists::Forget(std::list<Kept>::iterator kept) {
    entries_ -= SizeOf(kept->list);
    kept_.erase(kept);
}

void RecentLists::ForgetOld() {
    const auto now = now_();
    for (auto one = kept_.begin(); one != kept_.end();) {
        const auto next = std::next(one);
        if (IsOld(*one, now))
            Forget(one);
        one = next;
    }
}

} // namespace netrove

#include "redirector/RecentListings.h"

#include <algorithm>

namespace netrove {

void RecentListings::Keep(const QString& folder, Listing listing) {
    ForgetOld();
    const auto known = std::find_if(kept_.begin(), kept_.end(),
                                    [&](const Kept& one) { return one.folder == folder; });
    if (known != kept_.end())
        Forget(known);
    const std::size_t count = listing->size();
    if (count > MaxEntries)
        return;
    while (entries_ + count > MaxEntries)
        Forget(std::prev(kept_.end()));
    const auto now = now_();
    kept_.push_front(
        {.folder = folder, .listing = std::move(listing), .made = now, .used = now, .places = {}});
    entries_ += count;
}

RecentListings::Listing RecentListings::Find(const QString& folder) {
    const Kept* kept = Use(folder);
    return kept ? kept->listing : nullptr;
}

void RecentListings::Clear() {
    kept_.clear();
    entries_ = 0;
}

std::optional<SmbEntry> RecentListings::FindEntry(const QString& folder, const QString& name) {
    Kept* kept = Use(folder);
    if (!kept)
        return std::nullopt;
    const SmbEntries& entries = *kept->listing;
    if (kept->places.isEmpty()) {
        kept->places.reserve(static_cast<qsizetype>(entries.size()));
        for (std::size_t place = 0; place < entries.size(); ++place)
            kept->places.insert(entries[place].name, place);
    }
    const auto place = kept->places.constFind(name);
    return place == kept->places.cend() ? std::nullopt : std::optional(entries[*place]);
}

RecentListings::Kept* RecentListings::Use(const QString& folder) {
    const auto found = std::find_if(kept_.begin(), kept_.end(),
                                    [&](const Kept& one) { return one.folder == folder; });
    const auto now = now_();
    if (found == kept_.end() || IsOld(*found, now))
        return nullptr;
    found->used = now;
    kept_.splice(kept_.begin(), kept_, found);
    return &kept_.front();
}

bool RecentListings::IsOld(const Kept& kept, Clock::time_point now) {
    return now - kept.used > Rest || now - kept.made > MaxAge;
}

void RecentListings::Forget(std::list<Kept>::iterator kept) {
    entries_ -= kept->listing->size();
    kept_.erase(kept);
}

void RecentListings::ForgetOld() {
    const auto now = now_();
    for (auto one = kept_.begin(); one != kept_.end();) {
        const auto next = std::next(one);
        if (IsOld(*one, now))
            Forget(one);
        one = next;
    }
}

} // namespace netrove

#include "redirector/SmbLists.h"

#include <iterator>

namespace netrove {
namespace {

/// Entries that a folder may have; a longer list counts as one that never ends.
constexpr std::size_t MaxFolderEntries = 2'000'000;
constexpr std::size_t MaxShares = 10'000;

/// Bytes that a text takes beside its characters, including what the allocator needs.
constexpr qint64 TextOverhead = 32;

template <typename Item>
bool MoveItems(std::vector<Item>& from, std::vector<Item>& to, std::size_t most) {
    if (to.size() + from.size() > most)
        return false;
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
    return true;
}

bool TakeShares(SmbShares& from, SmbShares& to) {
    std::erase_if(from, [](const SmbShare& share) { return share.name.endsWith(u'$'); });
    return MoveItems(from, to, MaxShares);
}

} // namespace

qint64 MemoryOf(const SmbEntries& entries) {
    qint64 bytes = 0;
    for (const SmbEntry& entry : entries)
        bytes += qint64{sizeof entry} + TextOverhead + 2 * entry.name.size();
    return bytes;
}

qint64 MemoryOf(const SmbList& list) {
    qint64 bytes = list.entries ? MemoryOf(*list.entries) : 0;
    for (const SmbPiece& piece : list.pieces)
        bytes += piece.bytes.size();
    return bytes;
}

int FetchPiece(const SmbRequest& request, const SmbRun& run, QByteArray& bytes) {
    return run(request, [&](SmbAnswer& part) {
        const auto* data = std::get_if<SmbData>(&part);
        if (!data || bytes.size() + data->bytes.size() > static_cast<qsizetype>(request.length))
            return false;
        bytes += data->bytes;
        return true;
    });
}

SmbList FetchList(const SmbRequest& request, const SmbRun& run) {
    SmbEntries entries;
    SmbFolder folder;
    SmbList list;
    list.status = run(request, [&](SmbAnswer& part) {
        if (request.kind == SmbRequest::Kind::ListShares) {
            auto* some = std::get_if<SmbShares>(&part);
            return some && TakeShares(*some, list.shares);
        }
        if (const auto* self = std::get_if<SmbFolder>(&part)) {
            folder = *self;
            return true;
        }
        auto* some = std::get_if<SmbEntries>(&part);
        return some && MoveItems(*some, entries, MaxFolderEntries);
    });
    list.print = PrintOf(folder, entries);
    list.entries = std::make_shared<const SmbEntries>(std::move(entries));
    return list;
}

SmbList FetchList(const SmbRequest& request, const SmbRun& run, std::atomic<qint64>& arriving,
                  qint64 most) {
    qint64 counted = 0;
    bool isTooMuch = false;
    const SmbRun counting = [&](const SmbRequest& asked, const SmbWorker::Part& part) {
        return run(asked, [&](SmbAnswer& answer) {
            if (const auto* some = std::get_if<SmbEntries>(&answer)) {
                const qint64 bytes = MemoryOf(*some);
                counted += bytes;
                isTooMuch = arriving.fetch_add(bytes) + bytes > most;
            }
            return !isTooMuch && part(answer);
        });
    };
    SmbList list = FetchList(request, counting);
    arriving -= counted;
    if (isTooMuch)
        list.status = ENOBUFS;
    return list;
}

} // namespace netrove

#include "redirector/WalkOrder.h"

#include "redirector/FolderKeys.h"
#include "runtime/FileAttribute.h"
#include "runtime/Names.h"

#include <algorithm>

namespace netrove {
namespace {

/// Places that are expected at a time. A network has fewer; further ones are walked all the same.
constexpr std::size_t MaxExpected = 2000;
/// Shares of one computer that are read ahead.
constexpr std::size_t MaxSharesAhead = 500;

bool IsFolder(const SmbEntry& entry) {
    return (entry.attributes & FileAttribute::Directory) != 0;
}

QString PathBelow(const QString& path, const QString& name) {
    return path.isEmpty() ? name : path + u'/' + name;
}

} // namespace

void WalkOrder::Expect(const std::vector<Start>& starts) {
    for (const Start& start : starts) {
        const auto known = places_.constFind(start.key);
        if (known != places_.cend() && (*known)->start.server != start.server)
            Forget(start.key); // its computer has been found somewhere else
    }
    const auto before = steps_.begin();
    for (const Start& start : starts) {
        if (!places_.contains(start.key) && places_.size() < static_cast<qsizetype>(MaxExpected))
            Insert(before, {.start = start});
    }
}

WalkOrder::Steps::iterator WalkOrder::Insert(Steps::iterator before, Step step) {
    Count(step, 1);
    const auto place = steps_.insert(before, std::move(step));
    places_.insert(place->start.key, place);
    return place;
}

void WalkOrder::Erase(Steps::iterator step) {
    if (step->kind != Step::Kind::Place) {
        (step->kind == Step::Kind::Files ? files_ : subfolders_).remove(step->start.key);
        Count(*step, -step->left);
    } else {
        places_.remove(step->start.key);
        if (step->state == State::Waiting)
            Count(*step, -1);
        if (step->state == State::Answered) {
            --unused_;
            unusedBytes_ -= step->bytes;
        }
    }
    steps_.erase(step);
}

void WalkOrder::Forget(const QString& key) {
    const QString below = KeyBelow(key, QString());
    for (auto step = steps_.begin(); step != steps_.end();) {
        const auto next = std::next(step);
        if (step->start.key == key || step->start.key.startsWith(below))
            Erase(step);
        step = next;
    }
}

/// Whether a step is at the computer that the walk is at.
bool WalkOrder::IsNear(const Step& step) const {
    return step.start.server == (reached_.isEmpty() ? steps_.front().start.server : reached_);
}

bool WalkOrder::IsFull(bool isNear) const {
    const std::size_t parts = isNear ? 1 : 2;
    return unused_ >= limits_.answers / parts ||
           unusedBytes_ >= limits_.bytes / static_cast<qint64>(parts);
}

std::optional<WalkOrder::Question> WalkOrder::Next(const Grant& grant) {
    QString busy; // a server that takes no more for now
    for (auto following = steps_.begin(); following != steps_.end();) {
        const auto step = following++;
        const bool isNear = IsNear(*step);
        if (IsFull(true))
            return std::nullopt;
        if (IsFull(isNear))
            continue;
        if (step->start.server == busy || !HasQuestion(step, isNear))
            continue;
        const QString& server = step->start.server;
        if (!grant(RequestOf(*step), static_cast<std::size_t>(waiting_.value(server)))) {
            busy = server;
            continue;
        }
        const auto place = PlaceOf(step);
        return Question{.id = MarkAsked(*place),
                        .request = place->start.request,
                        .file = place->file,
                        .path = place->start.path};
    }
    return std::nullopt;
}

std::optional<SmbRequest> WalkOrder::FolderOfOnlyComputer() const {
    if (steps_.empty() || !IsNear(steps_.back()))
        return std::nullopt;
    const auto folder = std::find_if(steps_.begin(), steps_.end(), [](const Step& step) {
        return step.start.request.kind == SmbRequest::Kind::ListFolder;
    });
    return folder == steps_.end() ? std::nullopt : std::optional(folder->start.request);
}

/// Whether a step has something that may be asked ahead: what lies in a folder, only when the walk
/// is at its computer. Erases a step of files or subfolders with nothing left to ask.
bool WalkOrder::HasQuestion(Steps::iterator step, bool isNear) {
    if (step->kind == Step::Kind::Place)
        return step->state == State::Waiting && !step->isDropped;
    if (!isNear)
        return false;
    const SmbEntries& entries = *step->list.entries;
    for (; step->next < entries.size(); Advance(*step)) {
        if (IsEntered(*step, entries[step->next]))
            return true;
    }
    Erase(step);
    return false;
}

SmbRequest WalkOrder::RequestOf(const Step& step) const {
    if (step.kind == Step::Kind::Place)
        return step.start.request;
    return Below(step, (*step.list.entries)[step.next]).start.request;
}

/// The step itself if it is a place, else its next file or subfolder, made a place of its own.
WalkOrder::Steps::iterator WalkOrder::PlaceOf(Steps::iterator step) {
    if (step->kind == Step::Kind::Place)
        return step;
    Step place = Below(*step, (*step->list.entries)[step->next]);
    Advance(*step);
    return Insert(step, std::move(place));
}

void WalkOrder::Advance(Step& step) {
    if (step.kind == Step::Kind::Files || IsFolder((*step.list.entries)[step.next])) {
        --step.left;
        Count(step, -1);
    }
    ++step.next;
}

quint64 WalkOrder::MarkAsked(Step& place) {
    place.state = State::Asked;
    place.id = ++lastId_;
    Count(place, -1);
    return place.id;
}

bool WalkOrder::IsEntered(const Step& step, const SmbEntry& entry) const {
    if (step.kind == Step::Kind::Files)
        return !places_.contains(FileKey(step.start.key, entry.name));
    if ((entry.attributes & FileAttribute::Directory) == 0 || !IsPathElement(entry.name))
        return false;
    const QString key = KeyBelow(step.start.key, entry.name);
    return !places_.contains(key) && !junctions_.IsInLoop(key) &&
           plan_->EntersFolder(step.start.path + entry.name + u'\\', step.start.nodeLength,
                               step.depth);
}

/// The place for an entry of a step of files or subfolders.
WalkOrder::Step WalkOrder::Below(const Step& step, const SmbEntry& entry) {
    Step below{.start = step.start, .depth = step.depth, .trail = step.trail};
    SmbRequest& request = below.start.request;
    request.path = PathBelow(request.path, entry.name);
    below.start.path += entry.name;
    if (step.kind == Step::Kind::Files) {
        request.kind = SmbRequest::Kind::Read;
        below.start.key = FileKey(step.start.key, entry.name);
        below.file = entry;
    } else {
        below.start.key = KeyBelow(step.start.key, entry.name);
        below.start.path += u'\\';
    }
    return below;
}

WalkOrder::Steps::iterator WalkOrder::FindId(quint64 id) {
    return id == NoQuestion ? steps_.end()
                            : std::find_if(steps_.begin(), steps_.end(),
                                           [&](const Step& step) { return step.id == id; });
}

void WalkOrder::Answer(quint64 id, SmbList answer) {
    const auto step = FindId(id);
    if (step == steps_.end())
        return;
    step->state = State::Answered;
    step->list = std::move(answer);
    step->bytes = MemoryOf(step->list);
    ++unused_;
    unusedBytes_ += step->bytes;
    if (step->list.status != 0)
        return;
    if (step->start.request.kind == SmbRequest::Kind::ListShares)
        AddShares(step);
    else if (step->start.request.kind == SmbRequest::Kind::ListFolder &&
             !step->trail.Passes(step->list.print))
        AddContents(step, step->list.entries);
}

void WalkOrder::Drop(quint64 id) {
    const auto step = FindId(id);
    if (step == steps_.end())
        return;
    step->state = State::Waiting;
    step->isDropped = true;
    Count(*step, 1);
}

/// Puts the listed shares after all other steps of the computer.
void WalkOrder::AddShares(Steps::iterator computer) {
    const auto before = std::find_if(computer, steps_.end(), [&](const Step& step) {
        return step.start.server != computer->start.server;
    });
    std::size_t added = 0;
    for (const SmbShare& share : computer->list.shares) {
        const QString remoteName = KeyBelow(computer->start.path, share.name);
        const QString key = KeyBelow(computer->start.key, NameKey(share.name));
        if (share.kind != SmbShare::Kind::Disk || remoteName.size() > NameLimits::RemoteName ||
            !IsPathElement(share.name) || places_.contains(key) || !plan_->EntersShare(remoteName))
            continue;
        Step step{.start = {.request = computer->start.request,
                            .server = computer->start.server,
                            .key = key,
                            .path = KeyBelow(remoteName, QString()),
                            .nodeLength = remoteName.size()}};
        step.start.request.kind = SmbRequest::Kind::ListFolder;
        step.start.request.share = share.name;
        Insert(before, std::move(step));
        if (++added == MaxSharesAhead)
            return;
    }
}

void WalkOrder::AddContents(Steps::iterator folder, const SmbListing& listing) {
    AddSubfolders(folder, listing);
    AddFiles(folder, *listing); // added last, so that they come before the subfolders
}

void WalkOrder::AddFiles(Steps::iterator folder, const SmbEntries& listing) {
    SmbEntries files;
    for (const SmbEntry& entry : listing) {
        if (!IsFolder(entry) && entry.length > 0 && IsPathElement(entry.name) &&
            plan_->ReadsFile(entry.name))
            files.push_back(entry);
    }
    const QString& key = folder->start.key;
    if (files.empty() || files_.contains(key))
        return;
    Step step{.kind = Step::Kind::Files,
              .start = folder->start,
              .list = {.entries = std::make_shared<const SmbEntries>(std::move(files))}};
    step.left = static_cast<qsizetype>(step.list.entries->size());
    Count(step, step.left);
    files_.insert(key, steps_.insert(std::next(folder), std::move(step)));
}

void WalkOrder::AddSubfolders(Steps::iterator folder, const SmbListing& listing) {
    const QString& key = folder->start.key;
    junctions_.Note(key, *listing);
    const auto folders = std::count_if(listing->begin(), listing->end(), IsFolder);
    if (folders == 0 || subfolders_.contains(key))
        return;
    Step step{.kind = Step::Kind::Subfolders,
              .start = folder->start,
              .depth = folder->depth + 1,
              .trail = folder->trail.With(key, folder->list.print),
              .list = {.entries = listing},
              .left = folders};
    Count(step, folders);
    subfolders_.insert(key, steps_.insert(std::next(folder), std::move(step)));
}

WalkOrder::State WalkOrder::Reach(const QString& key) {
    if (!places_.contains(key))
        PassTo(key);
    const auto place = places_.constFind(key);
    if (place == places_.cend())
        return State::Unknown;
    const auto step = *place;
    DropFilesBefore(step);
    reached_ = step->start.server;
    return step->state;
}

/// The walk reads the files of a folder before it goes on: those that it hasn't read by now, it
/// won't read.
void WalkOrder::DropFilesBefore(Steps::iterator place) {
    for (auto step = steps_.begin(); step != place;) {
        const auto next = std::next(step);
        if (step->IsOfFiles() && step->start.server == place->start.server)
            Erase(step);
        step = next;
    }
}

/// The walk has come to a file or folder that isn't a place yet: makes it one, before the entries
/// that follow it.
void WalkOrder::PassTo(const QString& key) {
    const bool isFile = key.endsWith(u'\\');
    const QString entryKey = isFile ? key.chopped(1) : key;
    const qsizetype end = entryKey.lastIndexOf(u'\\');
    const auto& rests = isFile ? files_ : subfolders_;
    const auto found = rests.constFind(entryKey.left(std::max<qsizetype>(end, 0)));
    if (found == rests.cend())
        return;
    const auto step = *found;
    const QString name = entryKey.sliced(end + 1);
    const SmbEntries& entries = *step->list.entries;
    const auto first = entries.begin() + static_cast<std::ptrdiff_t>(step->next);
    const auto entry =
        std::find_if(first, entries.end(), [&](const SmbEntry& one) { return one.name == name; });
    if (entry == entries.end())
        return;
    for (auto passed = first; passed <= entry; ++passed)
        Advance(*step);
    Insert(step, Below(*step, *entry));
}

quint64 WalkOrder::Ask(const QString& key) {
    return MarkAsked(*places_.value(key));
}

SmbList WalkOrder::Take(const QString& key) {
    const auto step = places_.value(key);
    SmbList list = step->list;
    Erase(step);
    return list;
}

} // namespace netrove

#pragma once

#include "platform/Files.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace netrove {

/// What will be read of the files that a search finds, for reading ahead. Called from any thread.
struct FileReading {
    /// Whether anything is read of a file with this name. If it is empty, nothing is read of any.
    std::function<bool(const QString& name)> reads = {};
    std::function<void(FileAccess& files, const QString& path)> read = {};
};

/// What a walk over the network goes into: a snapshot, the same for the whole walk. May be asked
/// from any thread, but EntersComputer only from the walk's own.
class WalkPlan {
public:
    WalkPlan() = default;
    WalkPlan(const WalkPlan&) = delete;
    WalkPlan& operator=(const WalkPlan&) = delete;
    virtual ~WalkPlan() = default;

    [[nodiscard]] virtual bool EntersWorkgroup(const QString& name) const = 0;
    /// `remoteName` is \\SERVER.
    [[nodiscard]] virtual bool EntersComputer(const QString& remoteName) const = 0;
    /// `remoteName` is \\SERVER\SHARE.
    [[nodiscard]] virtual bool EntersShare(const QString& remoteName) const = 0;
    /// `folderPath` has its closing "\"; its first `nodeLength` characters are the remote name of
    /// the node below which it lies, and it is `depth` levels below the folder where the walk
    /// through folders begins.
    [[nodiscard]] virtual bool EntersFolder(const QString& folderPath, qsizetype nodeLength,
                                            int depth) const = 0;
    /// The names of the shares that are walked on each computer before those of its list.
    [[nodiscard]] virtual QStringList AdminShares() const = 0;

    /// Whether the walk will read something of a file with this name.
    [[nodiscard]] virtual bool ReadsFile(const QString& /*name*/) const { return false; }
    /// Reads what the walk will read of the file at `path`, through `files`, which has no other
    /// file. Raises what the reading raises.
    virtual void ReadFile(FileAccess& /*files*/, const QString& /*path*/) const {}
};

/// A node of the network that a walk will come to.
struct WalkPlace {
    enum class Kind {
        Computer, ///< the walk asks for its list of shares
        Folder,   ///< a share or a folder below one: the walk lists it
    };

    Kind kind = Kind::Folder;
    QString remoteName = {};
    QString provider = {};
    /// Of a computer: its shares have been listed, and the walk won't ask for them again.
    bool isListed = false;
};

/// Fetches what a walk will ask for before the walk does. That changes when requests are sent, but
/// not which ones: nothing is asked that the walk wouldn't ask, and nothing is asked twice, except
/// for a file that couldn't be read.
class ReadAhead {
public:
    ReadAhead() = default;
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;
    virtual ~ReadAhead() = default;

    /// A walk begins. It sees the network as it is: what was read before is forgotten.
    virtual void BeginWalk(std::shared_ptr<const WalkPlan> plan) = 0;
    /// The walk comes to these places next, in this order, and then to those that were expected
    /// before. Places that are expected already keep their turn, unless their computer has been
    /// found at another address.
    virtual void Expect(const std::vector<WalkPlace>& places) = 0;
    /// The walk won't come to this place or what lies below it (any more).
    virtual void Leave(const QString& remoteName) = 0;
    /// The walk has ended: what is under way is dropped, and what has come is forgotten.
    virtual void EndWalk() = 0;
};

} // namespace netrove

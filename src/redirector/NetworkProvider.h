#pragma once

#include "platform/Files.h"
#include "platform/NetworkEnumeration.h"
#include "platform/NetworkReport.h"
#include "platform/ReadAhead.h"
#include "redirector/RemotePlace.h"
#include "redirector/UncPath.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace netrove {

/// One entry at the first level of the network: it knows the workgroups, computers, shares and
/// printers below it and reads the files there. Calls block, and call WhileWaiting() meanwhile.
/// A failure is an empty answer or the RunTimeError that FileAccess names; nothing else escapes.
class NetworkProvider {
public:
    explicit NetworkProvider(QString name) : name_(std::move(name)) {}
    NetworkProvider(const NetworkProvider&) = delete;
    NetworkProvider& operator=(const NetworkProvider&) = delete;
    virtual ~NetworkProvider() = default;

    [[nodiscard]] const QString& Name() const { return name_; }

    /// What lies below `node` (this provider's own record, a workgroup or a server): for
    /// NetEnum::TypeDisk workgroups, servers or disk shares, for NetEnum::TypePrint the printers
    /// of a server. Nothing if the list can't be got; if it broke off, what had come by then.
    [[nodiscard]] virtual std::optional<std::vector<NetRecord>> List(const NetRecord& node,
                                                                     qint32 type) = 0;

    /// Whether this provider answers for a computer of this name (without "\\").
    [[nodiscard]] virtual bool Knows(const QString& server) = 0;

    /// Whether this provider answers for a computer that no provider knows: its name may still be
    /// found.
    [[nodiscard]] virtual bool TakesUnknown() const { return false; }

    /// Why the last question failed, which was for a computer's list, a share or a folder at
    /// `path`: a sentence for the user. Empty where the wait was given up, and where a folder fails
    /// for a reason of its own: it doesn't exist, or may not be opened.
    [[nodiscard]] virtual QString Trouble(const UncPath& path) const {
        return path.Elements().isEmpty() ? NotSearched::tr("It can't be reached.") : QString();
    }

    /// Whether the list that was asked for last broke off, so that only a part of it was given.
    [[nodiscard]] virtual bool BrokeOff() const { return false; }

    /// Where this provider looks for computers: a sentence for the user.
    [[nodiscard]] virtual QString Source() const { return u'"' + name_ + u'"'; }

    /// The workgroup of a computer, empty where nobody answers.
    [[nodiscard]] virtual QString Workgroup(const QString& server) = 0;

    /// As NetworkEnumeration has it.
    [[nodiscard]] virtual bool IsThisComputer(const QString& /*server*/) const { return false; }

    /// The entries of the folder at `path`; null where FileAccess::FindFirst gives null.
    [[nodiscard]] virtual std::unique_ptr<FileFind> FindFirst(const UncPath& path,
                                                              FindData& first) = 0;
    [[nodiscard]] virtual bool CanEnter(const UncPath& path) = 0;
    /// Raises ErrorNumber::FileNotFound, PathNotFound or PermissionDenied.
    [[nodiscard]] virtual FileInfo Info(const UncPath& path) = 0;
    /// Raises as Info, and ErrorNumber::DeviceIOError where the server fails in the middle.
    [[nodiscard]] virtual QByteArray Read(const UncPath& path, qint64 offset, qint64 length) = 0;
    [[nodiscard]] virtual std::optional<QString> LocalPath(const UncPath& path) = 0;

    /// As in FileAccess, for a computer (without "\\").
    [[nodiscard]] virtual std::optional<ServerAddress> Address(const QString& /*server*/) const {
        return std::nullopt;
    }

    /// A computer, a share or a place below one, for a caller that asks over connections of its
    /// own; null where no connections are used. Asks nobody.
    [[nodiscard]] virtual std::shared_ptr<const RemotePlace>
    RemotePlaceOf(const UncPath& /*path*/) const {
        return nullptr;
    }

    /// The computers of a workgroup that are known without asking, by their remote names.
    [[nodiscard]] virtual QStringList Computers(const QString& /*workgroup*/) const { return {}; }

    /// As in ReadAhead, for the places that are this provider's. A provider that waits for nothing
    /// reads nothing ahead.
    virtual void BeginWalk(const std::shared_ptr<const WalkPlan>& /*plan*/) {}
    virtual void Expect(const std::vector<WalkPlace>& /*places*/) {}
    virtual void Leave(const QString& /*remoteName*/) {}
    virtual void EndWalk() {}

protected:
    /// A record of this provider, as enumerations give it.
    [[nodiscard]] NetRecord Record(qint32 displayType, const QString& remoteName,
                                   const QString& comment, qint32 type = NetEnum::TypeDisk) const {
        return {.dwScope = NetEnum::ScopeGlobalNet,
                .dwType = type,
                .dwDisplayType = displayType,
                .dwUsage = displayType == NetEnum::DisplayShare ? NetEnum::UsageConnectable
                                                                : NetEnum::UsageContainer,
                .lpLocalName = {},
                .lpRemoteName = remoteName,
                .lpComment = comment,
                .lpProvider = name_};
    }

private:
    QString name_;
};

} // namespace netrove

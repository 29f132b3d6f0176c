#pragma once

#include "platform/Files.h"
#include "platform/LocalFiles.h"
#include "platform/NetworkEnumeration.h"
#include "platform/ReadAhead.h"
#include "redirector/ComputerReport.h"
#include "redirector/NetworkProvider.h"

#include <QHash>
#include <QSet>

#include <memory>
#include <optional>
#include <vector>

namespace netrove {

/// The whole network, made of its providers: it keeps the enumerations and sends each network path
/// to the provider that answers for its computer. Paths that aren't of the network are local files.
///
/// What providers report is not trusted. A record whose name isn't a proper one for its place, or
/// is longer than a node can hold, is left out, and of names that differ only in case the first is
/// kept; a share that is in a computer's list of disks isn't in its list of printers. Entries of
/// folders are left out if their names couldn't stand in a path.
class Network : public NetworkEnumeration, public FileAccess, public ReadAhead {
public:
    explicit Network(std::vector<std::unique_ptr<NetworkProvider>> providers);

    [[nodiscard]] quint32 OpenEnum(qint32 scope, qint32 type, qint32 usage, const NetRecord& start,
                                   NetEnum::Handle& handle) override;
    /// Each text is counted as its length in UTF-8 plus 1 byte.
    [[nodiscard]] quint32 EnumResource(NetEnum::Handle handle, qint32& count,
                                       std::vector<NetRecord>& buffer,
                                       quint32& bufferSize) override;
    void CloseEnum(NetEnum::Handle handle) override;
    /// `computer` with or without "\\".
    [[nodiscard]] QString Workgroup(const QString& computer) override;
    /// `computer` with or without "\\".
    [[nodiscard]] bool IsThisComputer(const QString& computer) override;

    [[nodiscard]] std::unique_ptr<FileFind> FindFirst(const QString& searchPath,
                                                      FindData& first) override;
    [[nodiscard]] bool CanEnter(const QString& path) override;
    [[nodiscard]] FileInfo Info(const QString& path) override;
    [[nodiscard]] QByteArray Read(const QString& path, qint64 offset, qint64 length) override;
    [[nodiscard]] std::optional<QString> LocalPath(const QString& path) override;
    [[nodiscard]] std::optional<ServerAddress> Address(const QString& path) override;

    void BeginWalk(std::shared_ptr<const WalkPlan> plan) override;
    void Expect(const std::vector<WalkPlace>& places) override;
    void Leave(const QString& remoteName) override;
    void EndWalk() override;

    /// As NetworkProvider::RemotePlaceOf; also null where no provider answers for the computer.
    [[nodiscard]] std::shared_ptr<const RemotePlace> RemotePlaceOf(const UncPath& path);

    /// Which computers couldn't be searched, and why.
    [[nodiscard]] NetworkReport& Report() { return report_; }

    /// The name of the provider that answers for a computer (with or without "\\"): the first
    /// that knows it, else the first that takes unknown ones; empty if there is none.
    [[nodiscard]] QString ProviderOf(const QString& server);

    /// A record for a node at a path that somebody typed: a server, a share, or a folder below
    /// one. Nothing where no provider answers for the computer or the path is too long for a node.
    /// Doesn't ask whether the place exists.
    [[nodiscard]] std::optional<NetRecord> Record(const UncPath& path);

private:
    /// A share or what lies below it, and the provider that answers for it.
    struct Place {
        NetworkProvider& provider;
        UncPath path;
    };

    struct OpenList {
        std::vector<NetRecord> records;
        std::size_t next = 0;
    };

    [[nodiscard]] std::vector<NetRecord> ProviderRecords() const;
    [[nodiscard]] std::optional<std::vector<NetRecord>> List(const NetRecord& node, qint32 type);
    void Note(const UncPath& path, const NetworkProvider& provider, bool answers);
    [[nodiscard]] QStringList Sources() const;
    [[nodiscard]] NetworkProvider* ProviderOf(const NetRecord& node);
    [[nodiscard]] NetworkProvider* ProviderFor(const QString& server);
    void ExpectComputers(NetworkProvider& provider, const std::vector<NetRecord>& workgroups);
    [[nodiscard]] NetworkProvider* ProviderOf(const WalkPlace& place);
    [[nodiscard]] std::optional<Place> PlaceOf(const QString& path);

    std::vector<std::unique_ptr<NetworkProvider>> providers_;
    LocalFiles localFiles_;
    ComputerReport report_{[this] { return Sources(); }};
    QHash<NetEnum::Handle, OpenList> openLists_;
    NetEnum::Handle lastHandle_ = 0;
    std::shared_ptr<const WalkPlan> plan_; ///< null outside of walks
    /// The names in the disk list that was made last, and the node whose list it was.
    QString diskNode_;
    QSet<QString> diskNames_;
};

} // namespace netrove

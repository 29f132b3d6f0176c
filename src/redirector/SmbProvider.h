#pragma once

#include "redirector/FolderTrail.h"
#include "redirector/Junctions.h"
#include "redirector/NetworkProvider.h"
#include "redirector/RecentLists.h"
#include "redirector/SmbAhead.h"
#include "redirector/SmbComputers.h"
#include "redirector/SmbErrors.h"
#include "redirector/SmbPool.h"
#include "redirector/SmbSettings.h"

#include <vector>

namespace netrove {

/// The SMB network: workgroups and computers as configured or found, and what the computers tell of
/// their shares and files. A computer whose workgroup isn't known stands in "WORKGROUP" until it
/// has been asked for it. Helper processes do the talking; none is started before the first
/// question that needs one.
///
/// A list of shares or of a folder is fetched as far as it comes before its first entry is given
/// out: if it breaks off, what had come is kept, and isn't asked for again. The SMB library gives
/// nothing of a folder whose server closes the connection in the middle.
class SmbProvider : public NetworkProvider {
public:
    SmbProvider(QString name, SmbComputers computers, QString helper = SmbPool::DefaultHelper(),
                const SmbLimits& limits = {}, std::shared_ptr<Logons> logons = nullptr);

    [[nodiscard]] std::optional<std::vector<NetRecord>> List(const NetRecord& node,
                                                             qint32 type) override;
    [[nodiscard]] bool Knows(const QString& server) override {
        return computers_.Find(server) != nullptr;
    }
    [[nodiscard]] QString Trouble(const UncPath& path) const override;
    [[nodiscard]] bool BrokeOff() const override { return lastStatus_ != 0; }
    [[nodiscard]] QString Source() const override;
    /// A computer that is neither configured nor found is tried by its name.
    [[nodiscard]] bool TakesUnknown() const override { return true; }
    /// As configured, else as the computer itself tells it.
    [[nodiscard]] QString Workgroup(const QString& server) override;
    /// False for another port than the usual one: it may be a tunnel, which leads anywhere.
    [[nodiscard]] bool IsThisComputer(const QString& server) const override;

    [[nodiscard]] std::unique_ptr<FileFind> FindFirst(const UncPath& path,
                                                      FindData& first) override;
    [[nodiscard]] bool CanEnter(const UncPath& path) override;
    [[nodiscard]] FileInfo Info(const UncPath& path) override;
    [[nodiscard]] QByteArray Read(const UncPath& path, qint64 offset, qint64 length) override;
    [[nodiscard]] std::optional<QString> LocalPath(const UncPath& path) override;
    [[nodiscard]] std::optional<ServerAddress> Address(const QString& server) const override {
        return computers_.AddressOf(server);
    }
    [[nodiscard]] std::shared_ptr<const RemotePlace>
    RemotePlaceOf(const UncPath& path) const override;

    [[nodiscard]] QStringList Computers(const QString& workgroup) const override;
    void BeginWalk(const std::shared_ptr<const WalkPlan>& plan) override;
    void Expect(const std::vector<WalkPlace>& places) override;
    void Leave(const QString& remoteName) override;
    void EndWalk() override;

    [[nodiscard]] const SmbPool& Pool() const { return pool_; }

private:
    [[nodiscard]] QString AskWorkgroup(const QString& server);
    void LookFor(const QString& server);
    void ExpectKnown(const NetRecord& node);
    [[nodiscard]] std::vector<NetRecord> Workgroups() const;
    [[nodiscard]] std::vector<NetRecord> Servers(const QString& workgroup) const;
    [[nodiscard]] std::optional<std::vector<NetRecord>> SharesOf(const QString& server,
                                                                 qint32 type);
    [[nodiscard]] SmbListing Entries(const UncPath& path);
    [[nodiscard]] SmbList Fetch(const QString& key, const SmbRequest& request);
    void AddComputer(const WalkPlace& computer, const UncPath& path,
                     std::vector<WalkOrder::Start>& starts);
    void AddStart(const UncPath& path, qsizetype nodeLength,
                  std::vector<WalkOrder::Start>& starts) const;
    [[nodiscard]] SmbEntry FetchInfo(const UncPath& path);
    [[nodiscard]] std::optional<QByteArray> ReadAhead(const UncPath& path, qint64 offset,
                                                      qint64 length);

    [[nodiscard]] SmbRequest Request(SmbRequest::Kind kind, const QString& server) const;
    [[nodiscard]] SmbRequest Request(SmbRequest::Kind kind, const UncPath& path) const;

    SmbComputers computers_;
    int lastStatus_ = 0; ///< an errno, of the last question for shares or a folder

    const std::shared_ptr<const SmbSettings> settings_;
    SmbPool pool_;
    RecentLists recent_;
    Junctions junctions_;
    FolderTrail trail_; ///< to the folder that was listed last
    std::shared_ptr<const WalkPlan> plan_;
    std::unique_ptr<SmbAhead> ahead_; ///< null outside of walks
};

} // namespace netrove

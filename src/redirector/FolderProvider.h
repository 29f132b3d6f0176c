#pragma once

#include "platform/LocalFiles.h"
#include "redirector/NetworkProvider.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <vector>

namespace netrove {

/// A folder that stands for a network: its subfolders are workgroups, theirs computers, and theirs
/// shares. The file "sample-network.ini" in it gives comments, kinds and faults: a section
/// [WORKGROUP/SERVER/SHARE], or a shorter one for the levels above, with the keys
///
///   comment=text
///   type=printer          (of a share)
///   fault=unreachable     no answer; a call returns after `delay` with nothing
///   fault=refused         can't be listed or entered
///   fault=slow            each listing takes `delay`
///   delay=milliseconds    200 if not given, 10,000 at most
///
/// A fault holds for everything below it, too. Names are found whatever their case. Shares whose
/// names end in "$" are in no list but can be reached by their paths.
class FolderProvider : public NetworkProvider {
    Q_DECLARE_TR_FUNCTIONS(FolderProvider)

public:
    /// `folder` is the local path of the tree, in the system's form.
    FolderProvider(QString name, const QString& folder);

    /// What is wrong with the folder or its file, as texts for the user; the rest of it is used.
    [[nodiscard]] const QStringList& Problems() const { return problems_; }

    /// Listing the provider's own record reads the folder anew; so does the start of a walk.
    [[nodiscard]] std::optional<std::vector<NetRecord>> List(const NetRecord& node,
                                                             qint32 type) override;
    [[nodiscard]] bool Knows(const QString& server) override;
    [[nodiscard]] QString Trouble(const UncPath& path) const override;
    [[nodiscard]] QString Source() const override;
    [[nodiscard]] QString Workgroup(const QString& server) override;
    [[nodiscard]] std::unique_ptr<FileFind> FindFirst(const UncPath& path,
                                                      FindData& first) override;
    [[nodiscard]] bool CanEnter(const UncPath& path) override;
    [[nodiscard]] FileInfo Info(const UncPath& path) override;
    [[nodiscard]] QByteArray Read(const UncPath& path, qint64 offset, qint64 length) override;
    [[nodiscard]] std::optional<QString> LocalPath(const UncPath& path) override;
    void BeginWalk(const std::shared_ptr<const WalkPlan>& /*plan*/) override { ReadTree(); }

private:
    enum class Fault { None, Unreachable, Refused, Slow };

    /// A workgroup, a server or a share; the top stands for the whole folder.
    struct Node {
        QString name = {};
        QString folder = {}; ///< local path
        QString comment = {};
        bool isPrinter = false;
        Fault fault = Fault::None;
        std::chrono::milliseconds delay{0};
        std::vector<Node> below = {};

        [[nodiscard]] const Node* Find(const QString& childName) const;
    };

    class Reader;

    void ReadTree();
    [[nodiscard]] const Node* FindServer(const QString& name) const;
    [[nodiscard]] const Node* FindShare(const UncPath& path) const;
    [[nodiscard]] const Node* EnterShare(const UncPath& path);
    [[nodiscard]] std::vector<NetRecord> WorkgroupRecords() const;
    [[nodiscard]] std::vector<NetRecord> ServerRecords(const Node& workgroup) const;
    [[nodiscard]] std::vector<NetRecord> ShareRecords(const Node& server, bool printers) const;
    [[nodiscard]] bool Answers(const Node& node);
    [[nodiscard]] static QString LocalText(const Node& share, const UncPath& path);

    LocalFiles files_{LocalFiles::NameCase::Ignored};
    Node top_;
    QStringList problems_;
    bool isGivenUp_ = false; ///< the last wait for an answer was given up
};

} // namespace netrove

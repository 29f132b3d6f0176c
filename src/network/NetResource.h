#pragma once

#include "network/NetResources.h"
#include "platform/NetworkEnumeration.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace netrove {

/// What a node of the network tree is. The numbers are those of the system's display types, except
/// for Printer, which is ours.
enum class ResourceType : qint32 {
    Generic = 0,
    Domain = 1,
    Server = 2,
    Share = 3,
    File = 4,
    Group = 5,
    Network = 6,
    Root = 7,
    ShareAdmin = 8,
    Directory = 9,
    Tree = 10,
    NDSContainer = 11,
    Printer = 255,
};

/// A node of the network tree: the root, a provider, a workgroup, a computer, a share, a printer.
/// Its children are asked for when they are first read, and kept for the life of the node; to see
/// the network anew, make a new root. A node owns its children and doesn't know its parent, so that
/// a node taken out of the tree stays valid.
///
/// Reading yields to the event loop at many points.
class NetResource {
public:
    /// Until it is filled by InitFrom, a node is the root of the network: type 0, empty remote
    /// name.
    explicit NetResource(NetworkEnumeration& network) : network_(network) {}
    NetResource(const NetResource&) = delete;
    NetResource& operator=(const NetResource&) = delete;
    ~NetResource() = default;

    /// Raised during FindNWObjects: a node of the wanted type has been added to the result.
    std::function<void(const std::shared_ptr<NetResource>&)> ResourceFound;
    /// Raised during FindNWObjects: the search has reached this node.
    std::function<void(const std::shared_ptr<NetResource>&)> SearchProgress;

    /// All nodes of that type below this one, for callers that want them at once: the program
    /// itself goes from node to node by Children. Doesn't look below servers, files, admin shares
    /// and printers.
    [[nodiscard]] std::shared_ptr<NetResources> FindNWObjects(ResourceType objectType);

    /// The children: disk shares, workgroups and so on, then printers. Empty where the network
    /// gives no list; the next call then asks again. Raises what NetResources::AddResource raises.
    [[nodiscard]] std::shared_ptr<NetResources> Children();

    /// The children if they have been read, else null. Asks nobody and doesn't yield.
    [[nodiscard]] std::shared_ptr<const NetResources> KnownChildren() const {
        return childrenRead_ ? childList_ : nullptr;
    }

    [[nodiscard]] const QString& Comment() const { return record_.lpComment; }
    /// For tools: none of the program's providers fills it.
    [[nodiscard]] const QString& LocalName() const { return record_.lpLocalName; }
    [[nodiscard]] const QString& Provider() const { return record_.lpProvider; }
    [[nodiscard]] const QString& RemoteName() const { return record_.lpRemoteName; }
    [[nodiscard]] netrove::ResourceType ResourceType() const;
    /// "Share", "Printer" and so on, after a yield; empty for a number without a name.
    [[nodiscard]] QString ResourceTypeName() const;
    /// The remote name behind its last "\".
    [[nodiscard]] QString ShortName() const;

    /// Fills a new node. Texts are cut at 255 characters and at a zero character.
    void InitFrom(const NetRecord& record);
    void MarkPrinter(bool value) { isPrinter_ = value; }

private:
    void ReadChildren();
    void ReadPrinters();
    void AddChild(const NetRecord& record, bool printer);
    void CollectObjects(const std::shared_ptr<NetResource>& node, netrove::ResourceType objectType);

    NetworkEnumeration& network_;
    NetRecord record_;
    bool childrenRead_ = false;
    bool isPrinter_ = false;
    std::shared_ptr<NetResources> childList_;
    std::shared_ptr<NetResources> foundList_;
};

} // namespace netrove

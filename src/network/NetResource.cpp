#include "network/NetResource.h"

#include "runtime/Names.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"

namespace netrove {
namespace {

/// The size in bytes of an enumeration's first buffer for records.
constexpr quint32 FirstBufferSize = 1024;

/// An open list of the network. The destructor closes it.
class Enumeration {
public:
    Enumeration(NetworkEnumeration& network, qint32 type, qint32 usage, const NetRecord& start)
        : network_(network) {
        open_ = network_.OpenEnum(NetEnum::ScopeGlobalNet, type, usage, start, handle_) ==
                NetEnum::NoError;
    }
    Enumeration(const Enumeration&) = delete;
    Enumeration& operator=(const Enumeration&) = delete;
    ~Enumeration() {
        if (open_)
            network_.CloseEnum(handle_);
    }

    [[nodiscard]] bool IsOpen() const { return open_; }

    /// The next records; none at the end of the list or when it breaks off.
    [[nodiscard]] std::vector<NetRecord> Next() {
        std::vector<NetRecord> records;
        for (;;) {
            Yield();
            qint32 count = NetEnum::CountAll;
            const quint32 oldSize = bufferSize_;
            const quint32 result = network_.EnumResource(handle_, count, records, bufferSize_);
            Yield();
            if (result == NetEnum::MoreData && bufferSize_ > oldSize)
                continue;
            if (result != NetEnum::NoError)
                records.clear();
            return records;
        }
    }

private:
    NetworkEnumeration& network_;
    NetEnum::Handle handle_ = 0;
    quint32 bufferSize_ = FirstBufferSize;
    bool open_ = false;
};

QString RecordText(const QString& text) {
    return CutAtZero(text.left(NameLimits::RemoteName));
}

/// Whether FindNWObjects looks below a node of this type.
bool HoldsObjects(ResourceType type) {
    switch (type) {
    case ResourceType::Generic:
    case ResourceType::Domain:
    case ResourceType::Share:
    case ResourceType::Group:
    case ResourceType::Network:
    case ResourceType::Root:
    case ResourceType::Directory:
    case ResourceType::Tree:
    case ResourceType::NDSContainer:
        return true;
    case ResourceType::Server:
    case ResourceType::File:
    case ResourceType::ShareAdmin:
    case ResourceType::Printer:
        return false;
    }
    return false;
}

} // namespace

std::shared_ptr<NetResources> NetResource::FindNWObjects(netrove::ResourceType objectType) {
    Yield();
    foundList_ = std::make_shared<NetResources>();
    const auto children = Children();
    for (const auto& child : *children) {
        Yield();
        CollectObjects(child, objectType);
    }
    return foundList_;
}

void NetResource::CollectObjects(const std::shared_ptr<NetResource>& node,
                                 netrove::ResourceType objectType) {
    Yield();
    if (SearchProgress)
        SearchProgress(node);
    if (node->ResourceType() == objectType) {
        Yield();
        foundList_->AddResource(node);
        if (ResourceFound)
            ResourceFound(node);
    }
    Yield();
    if (!HoldsObjects(node->ResourceType()))
        return;
    const auto children = node->Children();
    for (const auto& child : *children) {
        Yield();
        CollectObjects(child, objectType);
    }
}

std::shared_ptr<NetResources> NetResource::Children() {
    if (!childrenRead_)
        ReadChildren();
    return childList_;
}

void NetResource::ReadChildren() {
    childList_ = std::make_shared<NetResources>();
    Yield();
    {
        Enumeration list(network_, NetEnum::TypeDisk, NetEnum::UsageAll, record_);
        if (!list.IsOpen())
            return;
        for (auto records = list.Next(); !records.empty(); records = list.Next()) {
            for (const NetRecord& record : records)
                AddChild(record, false);
        }
    }
    ReadPrinters();
    childrenRead_ = true;
}

void NetResource::ReadPrinters() {
    Yield();
    Enumeration list(network_, NetEnum::TypePrint, NetEnum::UsageConnectable, record_);
    Yield();
    if (!list.IsOpen())
        return;
    for (auto records = list.Next(); !records.empty(); records = list.Next()) {
        for (const NetRecord& record : records) {
            Yield();
            if (record.dwDisplayType == NetEnum::DisplayShare)
                AddChild(record, true);
        }
    }
}

void NetResource::AddChild(const NetRecord& record, bool printer) {
    const auto child = std::make_shared<NetResource>(network_);
    child->InitFrom(record);
    child->MarkPrinter(printer);
    childList_->AddResource(child);
}

netrove::ResourceType NetResource::ResourceType() const {
    return isPrinter_ ? ResourceType::Printer
                      : static_cast<netrove::ResourceType>(record_.dwDisplayType);
}

QString NetResource::ResourceTypeName() const {
    Yield();
    switch (ResourceType()) {
    case ResourceType::Generic:
        return u"Generic"_s;
    case ResourceType::Domain:
        return u"Domain"_s;
    case ResourceType::Server:
        return u"Server"_s;
    case ResourceType::Share:
        return u"Share"_s;
    case ResourceType::File:
        return u"File"_s;
    case ResourceType::Group:
        return u"Group"_s;
    case ResourceType::Network:
        return u"Network"_s;
    case ResourceType::Root:
        return u"Root"_s;
    case ResourceType::ShareAdmin:
        return u"ShareAdmin"_s;
    case ResourceType::Directory:
        return u"Directory"_s;
    case ResourceType::Tree:
        return u"Tree"_s;
    case ResourceType::NDSContainer:
        return u"NDSContainer"_s;
    case ResourceType::Printer:
        return u"Printer"_s;
    }
    return QString();
}

QString NetResource::ShortName() const {
    return RemoteName().mid(RemoteName().lastIndexOf(u'\\') + 1);
}

void NetResource::InitFrom(const NetRecord& record) {
    record_ = record;
    record_.lpLocalName = RecordText(record.lpLocalName);
    record_.lpRemoteName = RecordText(record.lpRemoteName);
    record_.lpComment = RecordText(record.lpComment);
    record_.lpProvider = RecordText(record.lpProvider);
}

} // namespace netrove

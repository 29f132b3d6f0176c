#include "redirector/FolderProvider.h"

#include "platform/IniReader.h"
#include "runtime/Names.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Waiting.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace netrove {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds DefaultDelay{200};
constexpr milliseconds LongestDelay{10'000};
/// Levels of nodes below the top: workgroups, servers, shares.
constexpr int Levels = 3;

} // namespace

/// Reads the folder tree with what the file beside it says.
class FolderProvider::Reader {
public:
    explicit Reader(QStringList& problems) : problems_(problems) {}

    Node Read(const QString& folder) {
        ReadIni(folder + "/sample-network.ini"_L1);
        Node top{.folder = folder};
        ReadBelow(top, {}, Levels);
        for (const IniSection& section : ini_.Sections()) {
            if (std::ranges::find(used_, &section) == used_.end())
                problems_ +=
                    ini_.Problem(section.line, tr("there is no folder %1").arg(section.name));
        }
        return top;
    }

private:
    void ReadIni(const QString& path) {
        try {
            ini_ = IniReader::FromFile(path);
            problems_ += ini_.Problems();
        } catch (const RunTimeError& error) {
            if (error.Number() != static_cast<int>(ErrorNumber::FileNotFound))
                problems_ += tr("%1 can't be read").arg(path);
        }
    }

    void ReadBelow(Node& node, const QString& section, int levels) {
        if (levels == 0)
            return;
        FindData entry;
        const auto find = files_.List(node.folder, entry);
        if (!find)
            return;
        do {
            if (entry.IsDirectory() && !entry.fileName.startsWith(u'.'))
                node.below.push_back({.name = entry.fileName,
                                      .folder = node.folder + u'/' + entry.fileName,
                                      .fault = node.fault,
                                      .delay = node.delay});
        } while (find->FindNext(entry));
        // The file system has no order of its own.
        std::ranges::sort(node.below, [](const Node& left, const Node& right) {
            return CompareText(left.name, right.name) < 0;
        });
        for (Node& child : node.below) {
            const QString childSection =
                section.isEmpty() ? child.name : section + u'/' + child.name;
            if (const IniSection* settings = ini_.Find(childSection))
                Apply(*settings, child, levels == 1);
            ReadBelow(child, childSection, levels - 1);
        }
    }

    void Apply(const IniSection& section, Node& node, bool isShare) {
        used_.push_back(&section);
        for (const IniEntry& entry : section.entries) {
            if (!ApplyEntry(entry, node, isShare))
                problems_ += ini_.Problem(
                    entry.line, tr("%1=%2 has no meaning here").arg(entry.key, entry.value));
        }
        if (section.Find(u"fault") != nullptr && section.Find(u"delay") == nullptr)
            node.delay = DefaultDelay;
    }

    [[nodiscard]] static bool ApplyEntry(const IniEntry& entry, Node& node, bool isShare) {
        if (EqualText(entry.key, u"comment")) {
            node.comment = entry.value;
            return true;
        }
        if (EqualText(entry.key, u"type") && isShare) {
            node.isPrinter = EqualText(entry.value, u"printer");
            return node.isPrinter;
        }
        if (EqualText(entry.key, u"delay")) {
            bool isNumber = false;
            const milliseconds delay(entry.value.toInt(&isNumber));
            if (isNumber)
                node.delay = std::clamp(delay, milliseconds(0), LongestDelay);
            return isNumber;
        }
        return EqualText(entry.key, u"fault") && ApplyFault(entry.value, node);
    }

    [[nodiscard]] static bool ApplyFault(const QString& word, Node& node) {
        if (EqualText(word, u"unreachable"))
            node.fault = Fault::Unreachable;
        else if (EqualText(word, u"refused"))
            node.fault = Fault::Refused;
        else if (EqualText(word, u"slow"))
            node.fault = Fault::Slow;
        else
            return false;
        return true;
    }

    QStringList& problems_;
    LocalFiles files_;
    IniReader ini_{QByteArrayView()};
    std::vector<const IniSection*> used_;
};

const FolderProvider::Node* FolderProvider::Node::Find(const QString& childName) const {
    const auto found = std::ranges::find_if(
        below, [&](const Node& node) { return IsSameName(node.name, childName); });
    return found == below.end() ? nullptr : &*found;
}

FolderProvider::FolderProvider(QString name, const QString& folder)
    : NetworkProvider(std::move(name)) {
    // Without links, so that the listings needn't look for loops where there is no link below.
    top_.folder = QFileInfo(folder).canonicalFilePath();
    if (top_.folder.isEmpty() || !QFileInfo(top_.folder).isDir())
        problems_ += tr("%1: there is no folder %2").arg(Name(), folder);
    else
        ReadTree();
}

void FolderProvider::ReadTree() {
    if (top_.folder.isEmpty())
        return;
    problems_.clear();
    top_ = Reader(problems_).Read(top_.folder);
}

const FolderProvider::Node* FolderProvider::FindServer(const QString& name) const {
    for (const Node& workgroup : top_.below) {
        if (const Node* server = workgroup.Find(name))
            return server;
    }
    return nullptr;
}

const FolderProvider::Node* FolderProvider::FindShare(const UncPath& path) const {
    const Node* server = FindServer(path.Server());
    return server != nullptr ? server->Find(path.Share()) : nullptr;
}

/// Whether a node answers a call. Blocks for as long as the call is to take, unless it is given up.
bool FolderProvider::Answers(const Node& node) {
    isGivenUp_ = false;
    switch (node.fault) {
    case Fault::None:
        return true;
    case Fault::Slow:
        isGivenUp_ = !Waiting(node.delay).ForTime();
        return !isGivenUp_;
    case Fault::Unreachable:
        isGivenUp_ = !Waiting(node.delay).ForTime();
        return false;
    case Fault::Refused:
        return false;
    }
    return false;
}

std::optional<std::vector<NetRecord>> FolderProvider::List(const NetRecord& node, qint32 type) {
    const bool printers = type == NetEnum::TypePrint;
    if (const auto path = UncPath::Parse(node.lpRemoteName)) {
        const Node* server = FindServer(path->Server());
        if (server == nullptr || !path->Share().isEmpty() || !Answers(*server))
            return std::nullopt;
        return ShareRecords(*server, printers);
    }
    if (printers)
        return std::nullopt;
    if (node.dwDisplayType == NetEnum::DisplayNetwork) {
        ReadTree();
        return WorkgroupRecords();
    }
    const Node* workgroup = top_.Find(node.lpRemoteName);
    if (workgroup == nullptr || !Answers(*workgroup))
        return std::nullopt;
    return ServerRecords(*workgroup);
}

std::vector<NetRecord> FolderProvider::WorkgroupRecords() const {
    std::vector<NetRecord> records;
    for (const Node& workgroup : top_.below)
        records.push_back(Record(NetEnum::DisplayDomain, workgroup.name, workgroup.comment));
    return records;
}

std::vector<NetRecord> FolderProvider::ServerRecords(const Node& workgroup) const {
    std::vector<NetRecord> records;
    for (const Node& server : workgroup.below)
        records.push_back(Record(NetEnum::DisplayServer, "\\\\"_L1 + server.name, server.comment));
    return records;
}

std::vector<NetRecord> FolderProvider::ShareRecords(const Node& server, bool printers) const {
    std::vector<NetRecord> records;
    for (const Node& share : server.below) {
        if (share.isPrinter != printers || share.name.endsWith(u'$'))
            continue;
        records.push_back(Record(NetEnum::DisplayShare,
                                 "\\\\"_L1 + server.name + u'\\' + share.name, share.comment,
                                 printers ? NetEnum::TypePrint : NetEnum::TypeDisk));
    }
    return records;
}

bool FolderProvider::Knows(const QString& server) {
    return FindServer(server) != nullptr;
}

QString FolderProvider::Trouble(const UncPath& path) const {
    if (isGivenUp_ || !path.Elements().isEmpty())
        return {};
    const bool isComputer = path.Share().isEmpty();
    const Node* node = isComputer ? FindServer(path.Server()) : FindShare(path);
    if (node != nullptr && node->fault == Fault::Refused)
        return isComputer ? NotSearched::tr("It refused the logon.")
                          : NotSearched::tr("It isn't open to this user.");
    return NetworkProvider::Trouble(path);
}

QString FolderProvider::Source() const {
    return NotSearched::tr("%1: the folder %2.").arg(Name(), top_.folder);
}

QString FolderProvider::Workgroup(const QString& server) {
    for (const Node& workgroup : top_.below) {
        if (const Node* found = workgroup.Find(server))
            return found->fault == Fault::Unreachable ? QString() : workgroup.name;
    }
    return QString();
}

/// The share, if it answers and holds files.
const FolderProvider::Node* FolderProvider::EnterShare(const UncPath& path) {
    const Node* share = FindShare(path);
    return share != nullptr && !share->isPrinter && Answers(*share) ? share : nullptr;
}

QString FolderProvider::LocalText(const Node& share, const UncPath& path) {
    const QString below = path.RelativePath();
    return below.isEmpty() ? share.folder : share.folder + u'/' + below;
}

std::unique_ptr<FileFind> FolderProvider::FindFirst(const UncPath& path, FindData& first) {
    const Node* share = EnterShare(path);
    return share != nullptr ? files_.List(LocalText(*share, path), first, path.Elements().size())
                            : nullptr;
}

bool FolderProvider::CanEnter(const UncPath& path) {
    const Node* share = EnterShare(path);
    return share != nullptr && files_.CanEnter(LocalText(*share, path));
}

FileInfo FolderProvider::Info(const UncPath& path) {
    const Node* share = FindShare(path);
    if (share == nullptr || share->fault == Fault::Unreachable)
        throw RunTimeError(ErrorNumber::PathNotFound);
    if (share->fault == Fault::Refused || share->isPrinter)
        throw RunTimeError(ErrorNumber::PermissionDenied);
    return files_.Info(LocalText(*share, path));
}

QByteArray FolderProvider::Read(const UncPath& path, qint64 offset, qint64 length) {
    static_cast<void>(Info(path)); // raises where the share refuses
    return files_.Read(LocalText(*FindShare(path), path), offset, length);
}

std::optional<QString> FolderProvider::LocalPath(const UncPath& path) {
    const Node* share = FindShare(path);
    if (share == nullptr || share->fault == Fault::Unreachable || share->fault == Fault::Refused ||
        share->isPrinter)
        return std::nullopt;
    return files_.LocalPath(LocalText(*share, path));
}

} // namespace netrove

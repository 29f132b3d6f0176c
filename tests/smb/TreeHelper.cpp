// Stands in for netrove-smb in tests: it serves a random tree that is made of a number alone, with
// links that it follows without telling, delays and faults by path, and writes down what it is
// asked.

#include "runtime/FileAttribute.h"
#include "smb/Frames.h"
#include "smb/HelperLaunch.h"
#include "smb/SmbMessages.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace netrove {
namespace {

constexpr int Levels = 3;

class Tree {
public:
    explicit Tree(quint32 seed) : seed_(seed) {}

    /// A number from 0 to `below` - 1 that depends on the place and the question alone.
    [[nodiscard]] quint32 Number(const QString& place, quint32 question, quint32 below) const {
        // Qt's own differs from process to process.
        quint32 number = seed_ * 100 + question + 2166136261U;
        for (const char byte : place.toUtf8())
            number = (number ^ static_cast<unsigned char>(byte)) * 16777619U;
        return (number ^ (number >> 15)) % below;
    }

    [[nodiscard]] SmbEntries Entries(const QString& place) const {
        constexpr quint32 mostFolders = 5;
        constexpr quint32 mostFiles = 4;
        SmbEntries entries{Folder("."), Folder("..")};
        const auto level = place.count(QLatin1Char('/'));
        const quint32 folders = level < Levels ? Number(place, 1, mostFolders) : 0;
        for (quint32 at = 0; at < folders; ++at)
            entries.push_back(Folder(QByteArray("d") + QByteArray::number(at)));
        for (quint32 at = 0; at < Number(place, 2, mostFiles); ++at)
            entries.push_back(
                {.name = QStringLiteral("f%1.txt").arg(at), .length = Number(place, 3, 1000)});
        for (quint32 at = 0; at < Links.size(); ++at) {
            if (Number(place, 9 + at, 12) == 0)
                entries.insert(entries.begin() + 2, Folder(Links.at(at)));
        }
        if (level > 0 && Number(place, 4, 6) == 0)
            entries.back().attributes |= FileAttribute::Directory | FileAttribute::ReparsePoint;
        return entries;
    }

    /// Where a path leads through links that the server follows without telling.
    [[nodiscard]] QString Place(const SmbRequest& request) const {
        const QString top = request.host + QLatin1Char('\\') + request.share.toLower();
        QStringList way(top);
        for (const QString& element : request.path.split(QLatin1Char('/'))) {
            if (element == QLatin1String(Links[0]))
                way.resize(std::max<qsizetype>(1, way.size() - 1));
            else if (element == QLatin1String(Links[1]))
                way = {top, QStringLiteral("d1")};
            else if (element != QLatin1String(Links[2]) && !element.isEmpty())
                way += element;
        }
        return way.join(QLatin1Char('/')) + (way.size() == 1 ? QStringLiteral("/") : QString());
    }

private:
    static constexpr std::array<const char*, 3> Links = {"up", "over", "here"};

    static SmbEntry Folder(const QByteArray& name) {
        return {.name = QString::fromLatin1(name), .attributes = FileAttribute::Directory};
    }

    quint32 seed_;
};

void Say(const SmbAnswer& answer) {
    const QByteArray bytes = Frames::Framed(EncodeAnswer(answer));
    if (send(SmbHelperDescriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()),
             MSG_NOSIGNAL) != bytes.size())
        _exit(1);
}

QByteArray Content(const Tree& tree, const QString& place) {
    constexpr quint32 most = 1000;
    return QByteArray(tree.Number(place, 7, most), static_cast<char>(tree.Number(place, 8, 256)));
}

void Answer(const Tree& tree, const SmbRequest& request) {
    const QString place = tree.Place(request);
    usleep(tree.Number(place, 5, 200));
    if (request.kind == SmbRequest::Kind::ListShares) {
        Say(SmbShares{{.name = QStringLiteral("ONE")},
                      {.kind = SmbShare::Kind::Printer, .name = QStringLiteral("LASER")},
                      {.name = QStringLiteral("d1")},
                      {.name = QStringLiteral("TWO")}});
        Say(SmbEnd());
        return;
    }
    const quint32 fault = tree.Number(place, 6, 40);
    if (fault == 0)
        _exit(1);
    if (fault == 1) {
        Say(SmbEnd{.status = EACCES});
        return;
    }
    if (request.kind == SmbRequest::Kind::Read)
        Say(SmbData{.bytes = Content(tree, place).mid(request.offset, request.length)});
    else {
        Say(SmbFolder{.number = 1 + tree.Number(place, 12, 1 << 30)});
        Say(tree.Entries(place));
    }
    Say(SmbEnd{.status = fault == 2 ? ENOENT : 0});
}

/// Whether there are fewer others at work than there may be. Helpers hold one lock each.
bool IsLetIn(int file) {
    const int most = std::atoi(std::getenv("NETROVE_TREE_CONNECTIONS"));
    for (int at = 0; at < most; ++at) {
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        lock.l_start = at;
        lock.l_len = 1;
        if (fcntl(file, F_SETLK, &lock) == 0)
            return true;
    }
    return false;
}

void WriteDown(int log, const SmbRequest& request) {
    const QByteArray line = QByteArray::number(static_cast<int>(request.kind)) + ' ' +
                            request.host.toUtf8() + ' ' + request.share.toUtf8() + ' ' +
                            request.path.toUtf8() + ' ' + QByteArray::number(request.offset) + '\n';
    if (write(log, line.constData(), static_cast<std::size_t>(line.size())) != line.size())
        _exit(1);
}

void Serve(const Tree& tree, int log) {
    Say(SmbHello());
    Frames frames;
    bool isLetIn = false;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = recv(SmbHelperDescriptor, buffer.data(), buffer.size(), 0)) > 0) {
        frames.Append(QByteArrayView(buffer.data(), count));
        while (const auto payload = frames.Take()) {
            const auto question = DecodeQuestion(*payload);
            const auto* request = question ? std::get_if<SmbRequest>(&*question) : nullptr;
            if (!request)
                continue;
            isLetIn = isLetIn || IsLetIn(log);
            if (isLetIn) {
                WriteDown(log, *request);
                Answer(tree, *request);
            } else {
                Say(SmbEnd{.status = EINVAL});
            }
        }
    }
}

} // namespace
} // namespace netrove

int main() {
    if (!netrove::LaunchHelpers())
        return 0;
    const int log = open(std::getenv("NETROVE_TREE_LOG"), O_WRONLY | O_APPEND);
    netrove::Serve(netrove::Tree(static_cast<quint32>(std::atoi(std::getenv("NETROVE_TREE")))),
                   log);
    return 0;
}

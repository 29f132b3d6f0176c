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
constexpr std::array<const char*, 3> Links = {"up", "over", "here"};

int NumberFrom(const char* variable) {
    return qEnvironmentVariableIntValue(variable);
}

/// A number from 0 to `below` - 1 that depends on the place and the question alone.
quint32 Number(const QString& place, quint32 question, quint32 below) {
    // Qt's own differs from process to process.
    quint32 number = quint32(NumberFrom("NETROVE_TREE")) * 100 + question + 2166136261U;
    for (const char byte : place.toUtf8())
        number = (number ^ static_cast<unsigned char>(byte)) * 16777619U;
    return (number ^ (number >> 15)) % below;
}

SmbEntry Folder(const QString& name) {
    return {.name = name, .attributes = FileAttribute::Directory};
}

SmbEntries Entries(const QString& place) {
    SmbEntries entries{Folder(QStringLiteral(".")), Folder(QStringLiteral(".."))};
    const auto level = place.count(QLatin1Char('/'));
    const quint32 folders = level < Levels ? Number(place, 1, 5) : 0;
    for (quint32 at = 0; at < folders; ++at)
        entries.push_back(Folder(QStringLiteral("d%1").arg(at)));
    for (quint32 at = 0; at < Number(place, 2, 4); ++at)
        entries.push_back(
            {.name = QStringLiteral("f%1.txt").arg(at), .length = Number(place, 3, 1000)});
    for (quint32 at = 0; at < Links.size(); ++at) {
        if (Number(place, 9 + at, 12) == 0)
            entries.insert(entries.begin() + 2, Folder(QString::fromLatin1(Links.at(at))));
    }
    if (level > 0 && Number(place, 4, 6) == 0)
        entries.back().attributes |= FileAttribute::Directory | FileAttribute::ReparsePoint;
    return entries;
}

/// Where a path leads through links that the server follows without telling.
QString Place(const SmbRequest& request) {
    const QString top = request.host + QLatin1Char('\\') + request.share.toLower();
    QStringList way(top);
    for (const QString& element : request.path.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (element == QLatin1String(Links[0]))
            way.resize(std::max<qsizetype>(1, way.size() - 1));
        else if (element == QLatin1String(Links[1]))
            way = {top, QStringLiteral("d1")};
        else if (element != QLatin1String(Links[2]))
            way += element;
    }
    return way.join(QLatin1Char('/')) + (way.size() == 1 ? QStringLiteral("/") : QString());
}

void Say(const SmbAnswer& answer) {
    const QByteArray bytes = Frames::Framed(EncodeAnswer(answer));
    if (send(SmbHelperDescriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()),
             MSG_NOSIGNAL) != bytes.size())
        _exit(1);
}

/// Says all but the end, and gives the status for that.
int Answer(const SmbRequest& request) {
    const QString place = Place(request);
    usleep(Number(place, 5, 200));
    if (request.kind == SmbRequest::Kind::ListShares) {
        Say(SmbShares{{.name = QStringLiteral("ONE")},
                      {.kind = SmbShare::Kind::Printer, .name = QStringLiteral("LASER")},
                      {.name = QStringLiteral("d1")},
                      {.name = QStringLiteral("TWO")}});
        return 0;
    }
    const quint32 fault = Number(place, 6, 40);
    if (fault == 0)
        _exit(1);
    if (fault == 1)
        return EACCES;
    if (request.kind == SmbRequest::Kind::Read) {
        const QByteArray content(Number(place, 7, 1000), static_cast<char>(Number(place, 8, 256)));
        Say(SmbData{.bytes = content.mid(request.offset, request.length)});
    } else {
        Say(SmbFolder{.number = 1 + Number(place, 12, 1 << 30)});
        Say(Entries(place));
    }
    return fault == 2 ? ENOENT : 0;
}

/// Whether there are fewer others at work than there may be. Helpers hold one lock each.
bool IsLetIn(int file) {
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_len = 1;
    while (lock.l_start < NumberFrom("NETROVE_TREE_CONNECTIONS") &&
           fcntl(file, F_SETLK, &lock) != 0)
        ++lock.l_start;
    return lock.l_start < NumberFrom("NETROVE_TREE_CONNECTIONS");
}

void Serve(int log) {
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
            if (isLetIn)
                dprintf(log, "%d %s %s %s %lld\n", static_cast<int>(request->kind),
                        qUtf8Printable(request->host), qUtf8Printable(request->share),
                        qUtf8Printable(request->path), request->offset);
            Say(SmbEnd{.status = isLetIn ? Answer(*request) : EINVAL});
        }
    }
}

} // namespace
} // namespace netrove

int main() {
    if (netrove::LaunchHelpers())
        netrove::Serve(open(std::getenv("NETROVE_TREE_LOG"), O_WRONLY | O_APPEND));
    return 0;
}

#include "desktop/DesktopShell.h"

#include "desktop/DesktopAddress.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>

#include <memory>
#include <utility>
#include <vector>

namespace netrove {

namespace {

bool IsNetworkPath(const QString& file) {
    return file.startsWith("\\\\"_L1);
}
bool IsLocalPath(const QString& file) {
    return file.startsWith(u'/');
}

/// The file's type and the more general ones: a source file can be opened in a text editor.
QStringList TypesOf(const QUrl& address) {
    const QMimeDatabase database;
    const QMimeType type =
        address.isLocalFile()
            ? database.mimeTypeForFile(address.toLocalFile())
            : database.mimeTypeForFile(address.path(), QMimeDatabase::MatchExtension);
    QStringList types = type.allAncestors();
    types.removeAll(u"application/octet-stream"_s);
    types.prepend(type.name());
    return types;
}

/// Whether the desktop names a program for one of the types. True if the desktop can't be asked or
/// takes too long: then its opener finds out.
bool HasProgram(const QStringList& types, std::chrono::milliseconds questionLimit) {
    std::vector<std::unique_ptr<QProcess>> queries;
    for (const QString& type : types) {
        queries.push_back(std::make_unique<QProcess>());
        queries.back()->start(u"xdg-mime"_s, {u"query"_s, u"default"_s, type});
    }
    const QDeadlineTimer limit(questionLimit);
    bool mayBeThere = false;
    for (const auto& query : queries) {
        const bool isAnswered = query->waitForFinished(static_cast<int>(limit.remainingTime()));
        mayBeThere =
            mayBeThere || !isAnswered || !query->readAllStandardOutput().trimmed().isEmpty();
    }
    for (const auto& query : queries) {
        query->kill();
        query->waitForFinished();
    }
    return mayBeThere;
}

int ResultCode(const RunTimeError& failure) {
    const ErrorNumber number{failure.Number()};
    if (number == ErrorNumber::FileNotFound)
        return Shell::FileNotFound;
    return number == ErrorNumber::PermissionDenied ? Shell::AccessDenied : Shell::PathNotFound;
}

} // namespace

DesktopShell::DesktopShell(FileAccess& files, Opener opener, const QDBusConnection& bus,
                           std::chrono::milliseconds questionLimit)
    : files_(files), opener_(std::move(opener)), bus_(bus), questionLimit_(questionLimit) {
    if (!opener_)
        opener_ = [this](const QUrl& address, const Failed& failed) {
            return desktopOpener_.Open(address, failed);
        };
}

int DesktopShell::Execute(const QString& file, ShellVerb verb, const Failed& failed) {
    if (!IsNetworkPath(file) && !IsLocalPath(file))
        return OpenAddress(file, failed);
    const Found found = Find(file);
    if (const int* code = std::get_if<int>(&found))
        return *code;
    return OpenTarget(std::get<Target>(found), verb, failed);
}

bool DesktopShell::OpenWith(const QString& file, const Failed& failed) {
    if (!IsNetworkPath(file) && !IsLocalPath(file))
        return false;
    const Found found = Find(file);
    const Target* target = std::get_if<Target>(&found);
    return target && !target->isFolder && bus_.AskWhichProgram(target->address, failed);
}

std::optional<QUrl> DesktopShell::Address(const QString& file) {
    if (IsLocalPath(file))
        return FileAddress(file);
    if (const std::optional<QString> local = files_.LocalPath(file))
        return FileAddress(*local);
    return SmbAddress(file, files_.Address(file));
}

DesktopShell::Found DesktopShell::Find(const QString& path) {
    QString local = path;
    if (IsNetworkPath(path)) {
        const std::optional<QString> mapped = files_.LocalPath(path);
        if (!mapped)
            return FindRemote(path);
        local = *mapped;
    }
    const QFileInfo info(local);
    if (info.exists())
        return Target{FileAddress(local), info.isDir()};
    const bool folderWanted = local.endsWith(u'/');
    return folderWanted || !QFileInfo(info.path()).isDir() ? PathNotFound : FileNotFound;
}

DesktopShell::Found DesktopShell::FindRemote(const QString& path) {
    const std::optional<QUrl> address = SmbAddress(path, files_.Address(path));
    if (!address)
        return PathNotFound;
    if (files_.CanEnter(path))
        return Target{*address, true};
    try {
        static_cast<void>(files_.Info(path));
    } catch (const RunTimeError& failure) {
        return ResultCode(failure);
    }
    return Target{*address, false};
}

int DesktopShell::Open(const QUrl& address, const Failed& failed) {
    return opener_(address, failed) ? Success : NoAssociation;
}

int DesktopShell::OpenAddress(const QString& text, const Failed& failed) {
    const std::optional<QUrl> address = WebAddress(text);
    if (!address)
        return BadFormat;
    if (address->scheme() == "mailto"_L1 &&
        !HasProgram({u"x-scheme-handler/mailto"_s}, questionLimit_))
        return NoAssociation;
    return Open(*address, failed);
}

int DesktopShell::OpenTarget(const Target& target, ShellVerb verb, const Failed& failed) {
    if (target.isFolder)
        return Open(target.address, failed);
    if (verb != ShellVerb::Explore)
        return HasProgram(TypesOf(target.address), questionLimit_) ? Open(target.address, failed)
                                                                   : NoAssociation;
    const QUrl folder = target.address.adjusted(QUrl::RemoveFilename);
    const auto openFolder = [this, folder, failed] {
        if (Open(folder, failed) != Success && failed)
            failed();
    };
    return bus_.ShowInFolder(target.address, openFolder) ? Success : Open(folder, failed);
}

} // namespace netrove

#include "platform/desktop/DesktopShell.h"

#include "platform/desktop/DesktopAddress.h"
#include "platform/desktop/DesktopBus.h"
#include "runtime/RunTimeError.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>

#include <utility>

namespace netrove {

namespace {

constexpr int QueryMilliseconds = 2000;

bool IsNetworkPath(const QString& file) {
    return file.startsWith(QLatin1String("\\\\"));
}
bool IsLocalPath(const QString& file) {
    return file.startsWith(QLatin1Char('/'));
}

/// Whether the desktop names a program for the kind. True if it can't be asked: then its opener
/// finds out.
bool HasProgram(const QString& mimeType) {
    QProcess query;
    query.start(QStringLiteral("xdg-mime"),
                {QStringLiteral("query"), QStringLiteral("default"), mimeType});
    if (!query.waitForFinished(QueryMilliseconds))
        return true;
    return !query.readAllStandardOutput().trimmed().isEmpty();
}

/// For the file's kind or a more general one: a source file opens in a text editor.
bool HasProgramFor(const QUrl& address) {
    const QMimeDatabase database;
    const QMimeType type =
        address.isLocalFile()
            ? database.mimeTypeForFile(address.toLocalFile())
            : database.mimeTypeForFile(address.path(), QMimeDatabase::MatchExtension);
    if (HasProgram(type.name()))
        return true;
    for (const QString& general : type.allAncestors()) {
        if (general != QLatin1String("application/octet-stream") && HasProgram(general))
            return true;
    }
    return false;
}

int ResultCode(const RunTimeError& failure) {
    const ErrorNumber number{failure.Number()};
    if (number == ErrorNumber::FileNotFound)
        return Shell::FileNotFound;
    return number == ErrorNumber::PermissionDenied ? Shell::AccessDenied : Shell::PathNotFound;
}

} // namespace

DesktopShell::DesktopShell(FileAccess& files, Opener opener)
    : files_(files), opener_(opener ? std::move(opener) : QDesktopServices::openUrl) {}

int DesktopShell::Execute(const QString& file, ShellVerb verb) {
    if (!IsNetworkPath(file) && !IsLocalPath(file))
        return OpenAddress(file);
    const Found found = Find(file);
    if (const int* code = std::get_if<int>(&found))
        return *code;
    return OpenTarget(std::get<Target>(found), verb);
}

bool DesktopShell::OpenWith(const QString& file) {
    if (!IsNetworkPath(file) && !IsLocalPath(file))
        return false;
    const Found found = Find(file);
    const Target* target = std::get_if<Target>(&found);
    return target && !target->isFolder && DesktopBus::AskWhichProgram(target->address);
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
    const bool folderWanted = local.endsWith(QLatin1Char('/'));
    return folderWanted || !QFileInfo(info.path()).isDir() ? PathNotFound : FileNotFound;
}

DesktopShell::Found DesktopShell::FindRemote(const QString& path) {
    const std::optional<QUrl> address = SmbAddress(path, files_.Address(path));
    if (!address)
        return PathNotFound;
    if (files_.CanEnter(path))
        return Target{*address, true};
    try {
        static_cast<void>(files_.Attributes(path));
    } catch (const RunTimeError& failure) {
        return ResultCode(failure);
    }
    return Target{*address, false};
}

int DesktopShell::Open(const QUrl& address) const {
    return opener_(address) ? Success : NoAssociation;
}

int DesktopShell::OpenAddress(const QString& text) const {
    const std::optional<QUrl> address = WebAddress(text);
    if (!address)
        return BadFormat;
    if (address->scheme() == QLatin1String("mailto") &&
        !HasProgram(QStringLiteral("x-scheme-handler/mailto")))
        return NoAssociation;
    return Open(*address);
}

int DesktopShell::OpenTarget(const Target& target, ShellVerb verb) const {
    if (target.isFolder)
        return Open(target.address);
    if (verb == ShellVerb::Explore) {
        if (DesktopBus::ShowInFolder(target.address))
            return Success;
        return Open(target.address.adjusted(QUrl::RemoveFilename));
    }
    return HasProgramFor(target.address) ? Open(target.address) : NoAssociation;
}

} // namespace netrove

#pragma once

#include "platform/Files.h"
#include "platform/Shell.h"

#include <QUrl>

#include <functional>
#include <variant>

namespace netrove {

/// Opens files, folders and addresses through the desktop. Whatever a name holds, it reaches other
/// programs inside a percent-encoded address only, never as a word of a command line.
class DesktopShell : public Shell {
public:
    using Opener = std::function<bool(const QUrl&)>;

    /// `opener` hands an address to the desktop; without one it is the desktop's own.
    explicit DesktopShell(FileAccess& files, Opener opener = {});

    /// Files and folders are looked for first: a missing one is FileNotFound, or PathNotFound
    /// where its folder is missing too or a folder was asked for. A file whose kind no installed
    /// program opens is NoAssociation. Explore shows a file in its folder. Of addresses, http,
    /// https and mailto are opened; others are BadFormat.
    ///
    /// Success says that the desktop's opener has been started: what it does, it doesn't report.
    [[nodiscard]] int Execute(const QString& file, ShellVerb verb) override;

    /// Through the desktop portal.
    [[nodiscard]] bool OpenWith(const QString& file) override;

    [[nodiscard]] std::optional<QUrl> Address(const QString& file) override;

private:
    struct Target {
        QUrl address;
        bool isFolder;
    };
    /// What a path stands for, or the result code that says why it can't be opened.
    using Found = std::variant<Target, int>;

    [[nodiscard]] Found Find(const QString& path);
    [[nodiscard]] Found FindRemote(const QString& path);
    [[nodiscard]] int Open(const QUrl& address) const;
    [[nodiscard]] int OpenAddress(const QString& text) const;
    [[nodiscard]] int OpenTarget(const Target& target, ShellVerb verb) const;

    FileAccess& files_;
    Opener opener_;
};

} // namespace netrove

#pragma once

#include "desktop/DesktopBus.h"
#include "desktop/DesktopOpener.h"
#include "platform/Files.h"
#include "platform/Shell.h"

#include <QUrl>

#include <chrono>
#include <functional>
#include <variant>

namespace netrove {

/// Opens files, folders and addresses through the desktop. Whatever a name holds, it reaches other
/// programs only inside a percent-encoded address, never as a word of a command line.
class DesktopShell : public Shell {
public:
    using Opener = std::function<bool(const QUrl&, const Failed&)>;
    /// The longest that the question which programs there are may hold its caller up.
    static constexpr std::chrono::milliseconds QuestionLimit{100};

    /// `opener` hands an address to the desktop; without one it is the desktop's own.
    explicit DesktopShell(FileAccess& files, Opener opener = {},
                          const QDBusConnection& bus = QDBusConnection::sessionBus(),
                          std::chrono::milliseconds questionLimit = QuestionLimit);

    /// Looks for files and folders first: a missing one gives FileNotFound, or PathNotFound where
    /// its folder is missing too or a folder was asked for. A file whose type no installed program
    /// opens gives NoAssociation, and so does a mailto address without a mail program. Explore
    /// shows a file in its folder. Addresses are opened if they are http, https or mailto; others
    /// give BadFormat.
    ///
    /// Success means that the desktop's opener has been started. Questions to the desktop hold up
    /// the caller for the limit and DesktopBus::Limit at most; what isn't answered by then is left
    /// to the opener.
    [[nodiscard]] int Execute(const QString& file, ShellVerb verb, const Failed& failed) override;

    /// Through the desktop portal.
    [[nodiscard]] bool OpenWith(const QString& file, const Failed& failed) override;

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
    [[nodiscard]] int Open(const QUrl& address, const Failed& failed);
    [[nodiscard]] int OpenAddress(const QString& text, const Failed& failed);
    [[nodiscard]] int OpenTarget(const Target& target, ShellVerb verb, const Failed& failed);

    FileAccess& files_;
    DesktopOpener desktopOpener_;
    Opener opener_;
    DesktopBus bus_;
    std::chrono::milliseconds questionLimit_;
};

} // namespace netrove

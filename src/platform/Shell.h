#pragma once

#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

namespace netrove {

enum class ShellVerb { Default, Open, Explore };

/// The desktop's way of opening things.
class Shell {
public:
    /// Result codes of Execute; above 32 is success.
    static constexpr int OutOfMemory = 0;
    static constexpr int FileNotFound = 2;
    static constexpr int PathNotFound = 3;
    static constexpr int AccessDenied = 5;
    static constexpr int BadFormat = 11;
    static constexpr int NoAssociation = 31;
    static constexpr int Success = 42;

    Shell() = default;
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;
    virtual ~Shell() = default;

    /// Called later, from the event loop, if it only turns out then that nothing was opened. May
    /// be empty.
    using Failed = std::function<void()>;

    /// Opens a file, a folder or an address with the program that the desktop has for it. A
    /// network path becomes a local path where it has one, else an "smb:" address.
    [[nodiscard]] virtual int Execute(const QString& file, ShellVerb verb,
                                      const Failed& failed) = 0;

    /// Lets the user choose a program for a file that no program is set for; false if that can't be
    /// done.
    [[nodiscard]] virtual bool OpenWith(const QString& file, const Failed& failed) = 0;

    /// A file's address for other programs: a local one if it has a local path, else an "smb:" one.
    /// Nothing where its path can't be an address. Doesn't look whether the file exists.
    [[nodiscard]] virtual std::optional<QUrl> Address(const QString& file) = 0;
};

/// What the desktop knows of a file's kind, from its name alone: nothing is read.
struct ShellFileInfo {
    int iconIndex = 0; ///< stable for the life of the program; 0 for an unknown kind
    QString typeName;
};

class FileTypes {
public:
    FileTypes() = default;
    FileTypes(const FileTypes&) = delete;
    FileTypes& operator=(const FileTypes&) = delete;
    virtual ~FileTypes() = default;

    [[nodiscard]] virtual ShellFileInfo Info(const QString& path) = 0;
};

} // namespace netrove

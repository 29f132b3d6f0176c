#pragma once

#include "platform/Dialogs.h"
#include "platform/Shell.h"

#include <QString>

namespace netrove {

/// Opens files, folders and addresses for the user and says so in a box where that fails.
class ShellServices {
public:
    ShellServices(Shell& shell, Dialogs& dialogs) : shell_(shell), dialogs_(dialogs) {}

    /// Opens a file or an address. A verb other than "Open" or "Explore" stands for the default
    /// action. A file that no program is known for lets the user choose one. Gives -1 for
    /// success; else the shell's code, after a message box. Where only later it shows that
    /// nothing was opened, the box comes then.
    int ShellRun(const QString& file, const QString& verb = QString());

    /// Opens a folder, in a window of the "Explore" kind with exactly that verb. Shows no message
    /// and gives the shell's code: above 32 is success. Where only later it shows that nothing was
    /// opened, there is a box.
    [[nodiscard]] int OpenFolder(const QString& path, const QString& verb);

    /// Opens the mail program with a letter to `address`.
    void OpenMailLink(const QString& address);

private:
    /// For a file that no program is known for; gives what ShellRun gives then.
    int LetChoose(const QString& file);
    void TellFailure(const QString& file, const QString& message);

    Shell& shell_;
    Dialogs& dialogs_;
};

} // namespace netrove

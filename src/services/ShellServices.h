#pragma once

#include "platform/Dialogs.h"
#include "platform/Shell.h"

#include <QString>

namespace netrove {

/// Opens files, folders and addresses for the user; if that fails, a box says so.
class ShellServices {
public:
    ShellServices(Shell& shell, Dialogs& dialogs) : shell_(shell), dialogs_(dialogs) {}

    /// Opens a file or an address. A verb other than "Open" or "Explore" stands for the default
    /// action. If no program is known for a file, the user can choose one. Returns -1 for success;
    /// else the shell's code, after a message box. If it only turns out later that nothing was
    /// opened, the box comes then.
    int ShellRun(const QString& file, const QString& verb = QString());

    /// Opens a folder; if the verb is exactly "Explore", in a window of that kind. Shows no message
    /// and returns the shell's code: above 32 is success. If it only turns out later that nothing
    /// was opened, there is a box.
    [[nodiscard]] int OpenFolder(const QString& path, const QString& verb);

    /// Opens the mail program with a new mail to `address`.
    void OpenMailLink(const QString& address);

private:
    /// Lets the user choose a program for a file that none is known for; returns what ShellRun is
    /// to return.
    int LetChoose(const QString& file);
    void TellFailure(const QString& file, const QString& message);

    Shell& shell_;
    Dialogs& dialogs_;
};

} // namespace netrove

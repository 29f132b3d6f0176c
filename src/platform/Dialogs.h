#pragma once

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QString>

#include <optional>

namespace netrove {

enum class MessageIcon { None, Critical, Question, Exclamation, Information };
enum class MessageButtons { Ok, OkCancel, YesNo };
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// What a file chooser shows at first.
struct FileDialogSetup {
    QString title;
    QString filter; ///< "description|pattern|description|pattern"; the first one is chosen
    QString folder; ///< a local path
    QString fileName = {};
};

/// A font as a chooser shows and gives it.
struct ChosenFont {
    QString family = {};
    double points = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    qint16 charSet = 1; ///< what characters it is for; 1 leaves that to the system
    quint32 color = 0;  ///< of the text, red in the low byte
};

/// All message boxes and choosers that the program shows go through here, so that a test can answer
/// them. Lines in texts are separated by CR LF.
class Dialogs {
public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    /// A modal message box; with MessageButtons::YesNo, No is the default button,
    /// else OK.
    virtual MessageAnswer Message(MessageIcon icon, const QString& text, const QString& title,
                                  MessageButtons buttons = MessageButtons::Ok) = 0;

    /// A modal box with a line to type in, empty at first. Returns the text as it was typed; an
    /// empty text where the user cancels.
    [[nodiscard]] virtual QString InputBox(const QString& prompt, const QString& title) = 0;

    /// Lets the user choose an existing file to read, or a file to write, whether it exists or not:
    /// doesn't ask about overwriting. Returns its local path; nothing where the user cancels.
    [[nodiscard]] virtual std::optional<QString> OpenFile(const FileDialogSetup& setup) = 0;
    [[nodiscard]] virtual std::optional<QString> SaveFile(const FileDialogSetup& setup) = 0;

    /// Lets the user choose an existing folder, beginning at the local folder `start`, or at home
    /// if that isn't a folder. Returns its local path; for a folder of the network, which is
    /// offered only with `network`, an address like smb://SERVER/SHARE/C#; nothing where the user
    /// cancels. There is no closing separator, except for a root.
    [[nodiscard]] virtual std::optional<QString> ChooseFolder(const QString& title, bool network,
                                                              const QString& start) = 0;

    /// Lets the user choose a computer of the network. Gives its name without "\\"; nothing
    /// where the user cancels.
    [[nodiscard]] virtual std::optional<QString> ChooseComputer(const QString& title) = 0;

    /// Lets the user choose a font, starting with the given one. Returns nothing where the user
    /// cancels.
    [[nodiscard]] virtual std::optional<ChosenFont> ChooseFont(const ChosenFont& font) = 0;

    /// Shows the usual box for a run-time failure, if there is one: critical icon, number, CR LF,
    /// description, and `more` on a line of its own.
    void Failure(const std::optional<RunTimeError>& failure, const QString& title,
                 const QString& more = {}) {
        if (failure)
            Message(MessageIcon::Critical,
                    QString::number(failure->Number()) + u"\r\n"_s + failure->Description() +
                        (more.isEmpty() ? QString() : u"\r\n"_s + more),
                    title);
    }

    /// Does the work up to its first failure, which is shown in the usual box.
    template <typename Work>
    void Trap(const QString& title, Work work) {
        Failure(FailureOf(work), title);
    }
};

} // namespace netrove

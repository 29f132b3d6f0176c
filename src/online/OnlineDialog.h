#pragma once

#include "online/webfiles/Version.h"
#include "platform/Dialogs.h"
#include "platform/Http.h"
#include "services/ShellServices.h"
#include "skins/ProgramDialog.h"

#include <QAbstractButton>

#include <vector>

namespace netrove {

/// What the dialogs that read from the web site are given. All of it outlives them.
struct OnlineServices {
    Http* http; ///< without one, no such dialog is opened
    Dialogs& dialogs;
    ShellServices& shell;
    QString webAddress; ///< of the site, which has the files too
    DialogLook look = {};
    Version version = Version::Own(); ///< what a newer one is newer than
};

/// A dialog that reads from the web site. It is low at first, and grows where there is something to
/// show.
class OnlineDialog : public ProgramDialog {
protected:
    /// Of the inside, in twips.
    struct Size {
        int width;
        int low;
        int tall;
    };

    OnlineDialog(const QString& name, const OnlineServices& services, const Size& size,
                 QWidget* owner);

    [[nodiscard]] const OnlineServices& Services() const { return services_; }

    /// To be called when the controls are there, with those that a low dialog hides.
    void LoadLow(std::vector<QWidget*> hiddenWhileLow);
    void SetTall(bool isTall);

    /// The text of a file of the site, without blanks at its ends. The dialog can be closed while
    /// it waits for it, with its button `cancel` too; what else its user does meanwhile is dropped.
    /// Raises a RunTimeError where the file can't be read or the dialog has been closed.
    [[nodiscard]] QString Read(QAbstractButton& cancel, QLatin1String path);

    /// Tells of a failure, unless the dialog was closed meanwhile; whether it wasn't.
    bool SayFailure(const QString& text, const QString& title);

private:
    OnlineServices services_;
    Size size_;
    std::vector<QWidget*> hiddenWhileLow_;
};

} // namespace netrove

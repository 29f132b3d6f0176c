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
    Http* http; ///< null: no such dialog is ever opened
    Dialogs& dialogs;
    ShellServices& shell;
    QString webAddress; ///< of the site, which also holds the files
    DialogLook look = {};
    Version version = Version::Own(); ///< the version to compare with
};

/// A dialog that reads from the web site. It is low at first, and becomes tall when there is
/// something to show.
class OnlineDialog : public ProgramDialog {
protected:
    /// Inner sizes in twips.
    struct Size {
        int width;
        int low;
        int tall;
    };

    OnlineDialog(const QString& name, const OnlineServices& services, const Size& size,
                 QWidget* owner);

    [[nodiscard]] const OnlineServices& Services() const { return services_; }

    /// To be called once the controls exist, with those that a low dialog hides.
    void LoadLow(std::vector<QWidget*> hiddenWhileLow);
    void SetTall(bool isTall);

    /// The text of a file of the site, without blanks at its ends. While the dialog waits for it,
    /// the dialog can be closed, also by its button `cancel`; all other input is dropped. Raises a
    /// RunTimeError if the file can't be read or the dialog has been closed.
    [[nodiscard]] QString Read(QAbstractButton& cancel, QLatin1String path);

    /// Reports a failure, unless the dialog has been closed meanwhile. Returns whether it has
    /// reported it.
    bool SayFailure(const QString& text, const QString& title);

private:
    OnlineServices services_;
    Size size_;
    std::vector<QWidget*> hiddenWhileLow_;
};

} // namespace netrove

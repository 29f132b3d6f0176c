#pragma once

#include "platform/Dialogs.h"
#include "redirector/StoredLogon.h"
#include "skins/ProgramDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include <functional>

namespace netrove {

/// Asks for one logon. It is shown by exec(), once; if that is accepted, Result() has the logon.
class frmLogon : public ProgramDialog {
    Q_OBJECT

public:
    struct Services {
        bool hasKeyring;
        Dialogs& dialogs;
        DialogLook look = {};
        QString computer = {}; ///< the computer that a new logon is for, if known
    };

    /// What stands in place of a computer's name in a logon for all computers.
    [[nodiscard]] static QString AllComputers();

    /// `before` is the logon to be changed, null for a new one. The old password stays unless
    /// another is typed.
    frmLogon(const StoredLogon* before, const Services& services, QWidget* owner);
    ~frmLogon() override;

    [[nodiscard]] const StoredLogon& Result() const { return result_; }

    void accept() override;

private:
    void MakeControls(bool hasKeyring);
    void ShowLogon(const StoredLogon& before);
    void Complain(const QString& text, QWidget& where);
    [[nodiscard]] QString Computer() const;
    [[nodiscard]] Secret TakePassword();

    Services services_;
    QComboBox* cboComputer_;
    QLineEdit* txtUser_;
    QLineEdit* txtPassword_;
    QCheckBox* chkRemember_;
    QPushButton* cmdOk_;
    StoredLogon result_;
};

} // namespace netrove

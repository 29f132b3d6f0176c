#pragma once

#include "logons/LogonControls.h"
#include "logons/LogonServices.h"
#include "logons/LogonTrial.h"
#include "logons/frmLogon.h"
#include "skins/ProgramDialog.h"

namespace netrove {

/// The logons dialog: what is stored for which computer, where it is kept, and whether it works. It
/// is shown by exec(). Passwords aren't shown.
///
/// Whatever may take long (the keyring, the test of a logon) happens in the background.
class frmLogons : public ProgramDialog {
    Q_OBJECT

public:
    frmLogons(const LogonServices& services, QWidget* owner);
    ~frmLogons() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ConnectControls();
    void ReadKeyring();
    void ShowLogons();
    void UpdateButtons();
    [[nodiscard]] const StoredLogon* Selected() const;
    void Select(const QString& computer);

    [[nodiscard]] frmLogon::Services FormServices() const;

    void AskFor(const QString& computer);
    void AddFor(const QString& computer);

    void cmdAdd_Click();
    void cmdChange_Click();
    void cmdRemove_Click();
    void cmdTest_Click();
    void cmdCancel_Click();

    void Store(const StoredLogon& logon);
    [[nodiscard]] QString ComputerToTest(const StoredLogon& logon) const;
    void EndTest(const QString& computer, const QString& user, LogonResult result);

    void BeginWork(const QString& text, bool canBeCancelled);
    void EndWork(const QString& text);
    [[nodiscard]] Logons::StoreDone WhenStored(std::function<void(Keyring::Outcome)> done);

    LogonServices services_;
    LogonControls controls_;
    LogonTrial trial_;
    std::vector<StoredLogon> shown_;
    bool isBusy_ = false;
    bool isRead_ = false;
};

} // namespace netrove

#pragma once

#include "options/ExclusionEditor.h"
#include "options/OptionChecks.h"
#include "options/OptionControls.h"
#include "options/OptionServices.h"
#include "options/OptionValues.h"
#include "skins/ProgramDialog.h"

namespace netrove {

/// The options dialog: shows the settings, and takes what the user has changed once it has passed
/// the checks. It is shown by exec(). It doesn't write the settings file.
class frmOpts : public ProgramDialog {
    Q_OBJECT

public:
    /// `owner` is the main window.
    frmOpts(const OptionServices& services, QWidget* owner);
    ~frmOpts() override = default;

    /// Whether a check failed the last time that the values were to be taken.
    [[nodiscard]] bool ApplyFailed() const { return ApplyFailed_; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void Form_Load();
    void ConnectControls();
    void ConnectEdits();
    void ConnectExclusions();
    [[nodiscard]] QString AskForNode();

    void EnableApply();
    void ShowExclusionState(bool isOn);
    void ShowDateExample();
    void BrowseFolCmd_Click();
    void cmdChangeFont_Click();
    void cmdDefaults_Click();
    void cmdApply_Click();
    void OKCmd_Click();

    OptionServices services_;
    OptionControls controls_;
    ExclusionEditor exclusions_;
    OptionChecks checks_;
    OptionValues values_;
    bool ApplyFailed_ = false;
};

} // namespace netrove

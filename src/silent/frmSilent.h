#pragma once

#include "controls/ListView.h"
#include "platform/NetworkReport.h"
#include "platform/ReachTest.h"
#include "skins/ProgramDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <optional>

namespace netrove {

/// Shows what a search hasn't seen of the network: the computers and shares that didn't answer,
/// with the reason and the time, or, where no computer was found at all, what was asked and what
/// may help. It follows the report while it's open; a search may run meanwhile.
///
/// "Try Again" asks whatever didn't answer once more, and shows whether it answers now. It starts
/// no search.
class frmSilent : public ProgramDialog {
    Q_OBJECT

public:
    struct Services {
        const NetworkReport& report;
        ReachTest* test = nullptr; ///< without one, nothing is asked again
        /// Whether a job runs: meanwhile nothing is asked again, and no logon is changed.
        std::function<bool()> isBusy = [] { return false; };
        /// Asks for the logon of a computer (given without "\\"). Without this function there is no
        /// button for it.
        std::function<void(QWidget& owner, const QString& computer)> logOn = {};
        QString networkFile = {}; ///< "network.ini" with its path
        DialogLook look = {};
    };

    frmSilent(const Services& services, QWidget* owner);
    ~frmSilent() override;

private:
    void LayOut();
    [[nodiscard]] QWidget* MakeButtons();
    void Refresh();
    void Fill();
    void ShowNobody(bool nobody);
    void UpdateButtons();
    void CopyRows() const;
    void cmdLogOn_Click();
    void cmdTryAgain_Click();
    void LookForComputers();
    [[nodiscard]] std::optional<NotSearched> Selected() const;

    Services services_;
    QLabel* lblCount_;
    ListView* lvwSilent_;
    QLabel* lblNobody_;
    QPushButton* cmdLogOn_ = nullptr;
    QPushButton* cmdTryAgain_ = nullptr;
    QTimer tmrRefresh_;
    std::vector<NotSearched> shown_;
    std::optional<int> foundNow_; ///< how many computers a repeated look for them has found
};

} // namespace netrove

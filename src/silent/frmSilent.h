#pragma once

#include "controls/ListView.h"
#include "platform/NetworkReport.h"
#include "skins/DialogSkin.h"

#include <QDialog>
#include <QLabel>
#include <QTimer>

namespace netrove {

/// Shows the computers that didn't answer, with the reason and the time, and follows the report
/// while it's open. A search may go on behind it.
class frmSilent : public QDialog {
    Q_OBJECT

public:
    /// `skin` tells what it looks like; null for the desktop's look.
    frmSilent(const NetworkReport& report, const SkinOwner* skin, QWidget* owner);

private:
    void LayOut();
    void Fill();
    void CopyRows() const;

    const NetworkReport& report_;
    QLabel* lblCount_;
    ListView* lvwSilent_;
    QTimer tmrRefresh_;
    DialogSkin skin_;
    QDateTime shownUntil_; ///< when the last computer was silent that is shown
};

} // namespace netrove

#pragma once

#include "controls/ListView.h"
#include "platform/NetworkReport.h"
#include "skins/DialogSkin.h"

#include <QDialog>
#include <QLabel>
#include <QTimer>

#include <functional>

namespace netrove {

/// Shows the computers that didn't answer, with the reason and the time, and follows the report
/// while it's open. A search may go on behind it.
class frmSilent : public QDialog {
    Q_OBJECT

public:
    struct Services {
        const NetworkReport& report;
        const SkinOwner* skin = nullptr;     ///< what it looks like; null for the desktop's look
        std::function<void()> openHelp = {}; ///< what the key F1 does
    };

    frmSilent(const Services& services, QWidget* owner);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LayOut();
    void Fill();
    void CopyRows() const;

    Services services_;
    QLabel* lblCount_;
    ListView* lvwSilent_;
    QTimer tmrRefresh_;
    DialogSkin skin_;
    QDateTime shownUntil_; ///< when the last computer was silent that is shown
};

} // namespace netrove

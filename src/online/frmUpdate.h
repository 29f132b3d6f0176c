#pragma once

#include "online/OnlineDialog.h"

#include <QFrame>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace netrove {

/// Asks the web site whether there is a newer version, shows its news, and opens its installer
/// through the desktop.
class frmUpdate : public OnlineDialog {
    Q_OBJECT

public:
    /// The dialog appears in the middle of the window `owner`.
    frmUpdate(const OnlineServices& services, QWidget* owner);

private:
    void MakeControls();
    void Arrange();
    void ShowLink(bool isShown);

    [[nodiscard]] bool Check4File(QLatin1String path, QString& resp);
    [[nodiscard]] QString ReadPayload(QLatin1String path, QLatin1String marker);

    void cmdCheck_Click();
    void BeginCheck();
    void SayUpToDate(const Version& web);
    void OfferUpdate(const Version& web);
    void FailCheck();
    void cmdDown_Click();
    void HandOverInstaller();
    void FailDownload();
    void cmdLink_Click();

    QFrame* Shape1_;
    QLabel* Label1_;
    QLabel* Label2_;
    QPushButton* cmdCheck_;
    QPushButton* cmdCancel_;
    QPushButton* cmdLink_;
    QFrame* Line1_;
    QPlainTextEdit* txtInfo_;
    QPushButton* cmdDown_;
};

} // namespace netrove

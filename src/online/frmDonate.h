#pragma once

#include "online/OnlineDialog.h"
#include "online/webfiles/DonationLinks.h"

#include <QPlainTextEdit>
#include <QPushButton>

#include <array>

namespace netrove {

/// Asks for a donation. Its three links lead to the web site until the user has the real ones read
/// from there.
class frmDonate : public OnlineDialog {
    Q_OBJECT

public:
    /// The dialog appears in the middle of the window `owner`.
    frmDonate(const OnlineServices& services, QWidget* owner);

private:
    void MakeControls();
    void Arrange();

    void ResetLinks();
    void SetCaption(QPushButton& link, const QString& caption) const;
    [[nodiscard]] bool Check4File(QLatin1String path, QString& resp);
    void GetDonationLinks();
    void ReadLinks();
    void SayUnread();
    void cmdUp_Click();

    std::array<QString, DonationLinks::Count> LinkAddress_;
    QPlainTextEdit* txtDon_;
    QPushButton* cmdUp_;
    QPushButton* cmdOK_;
    std::array<QPushButton*, DonationLinks::Count> cmdLink_{};
};

} // namespace netrove

#include "online/OnlineDialog.h"

#include "controls/DialogRead.h"
#include "online/webfiles/WebFile.h"
#include "runtime/RunTimeError.h"
#include "runtime/Text.h"
#include "windowservices/WindowGeometry.h"

namespace netrove {

OnlineDialog::OnlineDialog(const QString& name, const OnlineServices& services, const Size& size,
                           QWidget* owner)
    : ProgramDialog(name, services.look, owner), services_(services), size_(size) {}

void OnlineDialog::LoadLow(std::vector<QWidget*> hiddenWhileLow) {
    hiddenWhileLow_ = std::move(hiddenWhileLow);
    SetTall(false);
    Centre();
    LoadSkin(QSize(size_.width, size_.low));
}

void OnlineDialog::SetTall(bool isTall) {
    for (QWidget* control : hiddenWhileLow_)
        control->setVisible(isTall);
    SetFixedClientSize(*this, size_.width, isTall ? size_.tall : size_.low);
}

QString OnlineDialog::Read(QAbstractButton& cancel, QLatin1String path) {
    QString text;
    {
        const DialogRead reading(*this, cancel);
        text = Trim(services_.http->OpenURL(WebFile::Address(services_.webAddress, path)));
    }
    if (!isVisible())
        throw RunTimeError(ErrorNumber::DeviceUnavailable);
    return text;
}

bool OnlineDialog::SayFailure(const QString& text, const QString& title) {
    if (!isVisible())
        return false;
    services_.dialogs.Message(MessageIcon::Critical, text, title);
    return true;
}

} // namespace netrove

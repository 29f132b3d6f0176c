#include "skins/ProgramDialog.h"

#include "skins/SkinControls.h"
#include "skins/StandardFrame.h"
#include "windowservices/WindowGeometry.h"

#include <QKeyEvent>

namespace netrove {

ProgramDialog::ProgramDialog(const QString& name, DialogLook look, QWidget* owner)
    : QDialog(owner), look_(std::move(look)) {
    setObjectName(name);
}

ProgramDialog::~ProgramDialog() = default;

void ProgramDialog::Centre() {
    if (parentWidget())
        Centre(*parentWidget()->window());
}

void ProgramDialog::Centre(const QWidget& window) {
    CentreWindow(window, *this);
}

void ProgramDialog::LoadSkin(std::optional<QSize> clientSize) {
    const SkinOwner* const owner = look_.skin;
    const int index = owner ? owner->SkinIndex() : 0;
    if (owner && index != 0)
        configuration_ = owner->SkinConfiguration();
    if (owner && configuration_) {
        modifier_ = owner->NewModifier();
        modifier_->Attach(*this, *configuration_);
        if (clientSize)
            SetFixedClientSize(
                *this,
                clientSize->width() + configuration_->FrameInset1 + configuration_->FrameInset2,
                clientSize->height() + configuration_->FrameInset3 + configuration_->FrameInset4);
    }
    if (!modifier_)
        modifier_ = owner ? owner->NewModifier() : std::make_unique<StandardFrame>();
    SkinControls(*this, *modifier_, index, owner ? owner->Colors() : SkinColors());
}

void ProgramDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && look_.openHelp)
        look_.openHelp();
    else
        QDialog::keyPressEvent(event);
}

} // namespace netrove

#include "skins/DialogSkin.h"

#include "skins/SkinControls.h"
#include "skins/StandardFrame.h"
#include "windowservices/WindowGeometry.h"

namespace netrove {

void DialogSkin::Load(QDialog& dialog, const SkinOwner* owner, std::optional<QSize> clientSize) {
    const int index = owner ? owner->SkinIndex() : 0;
    if (owner && index != 0)
        configuration_ = owner->SkinConfiguration();
    if (owner && configuration_) {
        modifier_ = owner->NewModifier();
        modifier_->Attach(dialog, *configuration_);
        if (clientSize)
            SetFixedClientSize(
                dialog,
                clientSize->width() + configuration_->FrameInset1 + configuration_->FrameInset2,
                clientSize->height() + configuration_->FrameInset3 + configuration_->FrameInset4);
    }
    if (!modifier_)
        modifier_ = owner ? owner->NewModifier() : std::make_unique<StandardFrame>();
    SkinControls(dialog, *modifier_, index, owner ? owner->Colors() : SkinColors());
}

} // namespace netrove

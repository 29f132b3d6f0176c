#pragma once

#include "skins/SkinOwner.h"

#include <QDialog>
#include <QSize>

#include <memory>
#include <optional>

namespace netrove {

/// The look of one dialog: applied in its load, before it is shown, and gone with it. The dialog's
/// controls stand in a layout of the dialog, so that the frame's margins shift them.
class DialogSkin {
public:
    /// Without an owner, or without a skin, the dialog keeps its standard frame, and the walk
    /// runs all the same. `clientSize` (twips) is the size of a dialog that the user can't resize;
    /// with a skin the frame's insets are added to it as they are.
    void Load(QDialog& dialog, const SkinOwner* owner, std::optional<QSize> clientSize = {});

private:
    std::shared_ptr<SkinConfiguration> configuration_;
    std::unique_ptr<NCSizeModifier> modifier_;
};

} // namespace netrove

#pragma once

#include "skins/NCSizeModifier.h"
#include "skins/SkinColors.h"
#include "skins/SkinConfiguration.h"

#include <memory>

namespace netrove {

/// What the main window tells the dialogs that it opens about the skin in force.
class SkinOwner {
public:
    SkinOwner() = default;
    SkinOwner(const SkinOwner&) = delete;
    SkinOwner& operator=(const SkinOwner&) = delete;
    virtual ~SkinOwner() = default;

    /// 0: no skin.
    [[nodiscard]] virtual int SkinIndex() const = 0;
    /// The configuration in force, shared by all windows; null without a skin.
    [[nodiscard]] virtual std::shared_ptr<netrove::SkinConfiguration> SkinConfiguration() const = 0;
    [[nodiscard]] virtual const SkinColors& Colors() const = 0;
    /// A frame for one more window.
    [[nodiscard]] virtual std::unique_ptr<NCSizeModifier> NewModifier() const = 0;
};

} // namespace netrove

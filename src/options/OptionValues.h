#pragma once

#include "options/ExclusionEditor.h"
#include "options/OptionControls.h"
#include "options/OptionServices.h"
#include "options/PickFont.h"

namespace netrove {

/// Moves the settings into the controls of the options dialog and back; settings of the lists also
/// go to the lists. The control txtFont holds the font that is being chosen.
class OptionValues {
public:
    OptionValues(OptionControls& controls, ExclusionEditor& exclusions,
                 const OptionServices& services)
        : controls_(controls), exclusions_(exclusions), services_(services) {}

    /// Raises what ExclusionEditor::Load raises.
    void Load();
    /// Puts the defaults into the controls, and leaves the settings alone.
    void ShowDefaults();
    /// Takes the controls' values into the settings. They must have passed OptionChecks. Raises
    /// ErrorNumber::Overflow for a number that doesn't fit its setting; what comes before it has
    /// been taken by then.
    void Take();

    /// The font that is being chosen.
    [[nodiscard]] CharSetFont SampleFont() const { return {controls_.txtFont->font(), charSet_}; }
    void ShowSampleFont(const CharSetFont& font);

private:
    void Show(const Settings& settings);
    void ShowSize(const Settings& settings);
    void LoadFont();
    void TakeLimits();
    void TakeLook();
    void TakeFont();
    void TakeFormats();

    OptionControls& controls_;
    ExclusionEditor& exclusions_;
    OptionServices services_;
    Settings& settings_ = services_.settings;
    qint16 charSet_ = 1;
};

} // namespace netrove

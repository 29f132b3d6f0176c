#pragma once

#include "skins/SkinOwner.h"

#include <QDialog>
#include <QSize>

#include <functional>
#include <memory>
#include <optional>

namespace netrove {

/// What every dialog of the program is given.
struct DialogLook {
    const SkinOwner* skin = nullptr;     ///< null for the desktop's look
    std::function<void()> openHelp = {}; ///< what the key F1 does
};

/// What the program's dialogs have in common: F1 opens the help, they appear in the middle of their
/// owner, and they have the look of the skin in force. A dialog's controls are in its layout, so
/// that the frame's margins shift them.
class ProgramDialog : public QDialog {
public:
    ~ProgramDialog() override;

protected:
    ProgramDialog(const QString& name, DialogLook look, QWidget* owner);

    [[nodiscard]] const DialogLook& Look() const { return look_; }

    /// Puts it in the middle of its owner's window, or, if given one, of another.
    void Centre();
    void Centre(const QWidget& window);

    /// To be called once, before it is shown. Without a skin the dialog keeps its standard frame,
    /// and its controls get their colours all the same. `clientSize` (twips) is the size of a
    /// dialog that the user can't resize; with a skin the frame's insets are added to it as they
    /// are.
    void LoadSkin(std::optional<QSize> clientSize = {});

    void keyPressEvent(QKeyEvent* event) override;

private:
    DialogLook look_;
    std::shared_ptr<SkinConfiguration> configuration_;
    std::unique_ptr<NCSizeModifier> modifier_;
};

} // namespace netrove

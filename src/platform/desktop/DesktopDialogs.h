#pragma once

#include "platform/Dialogs.h"
#include "platform/NetworkEnumeration.h"

#include <QPointer>
#include <QWidget>

namespace netrove {

/// Message boxes, input boxes and choosers of the desktop. They block all windows of the program
/// until they are answered; texts are shown as they are, never as markup. Escape and the close box
/// mean Cancel or No where there is such a button. They stand over the dialog that is open, else
/// over the main window.
class DesktopDialogs : public Dialogs {
public:
    /// The main window; none before it is set.
    void SetParent(QWidget* parent) { parent_ = parent; }
    /// Whose computers can be chosen; none before it is set. It outlives this object.
    void SetNetwork(NetworkEnumeration& network) { network_ = &network; }

    MessageAnswer Message(MessageIcon icon, const QString& text, const QString& title,
                          MessageButtons buttons = MessageButtons::Ok) override;
    [[nodiscard]] QString InputBox(const QString& prompt, const QString& title) override;
    [[nodiscard]] std::optional<QString> OpenFile(const FileDialogSetup& setup) override;
    [[nodiscard]] std::optional<QString> SaveFile(const FileDialogSetup& setup) override;
    [[nodiscard]] std::optional<QString> ChooseFolder(const QString& title, bool network) override;
    [[nodiscard]] std::optional<QString> ChooseComputer(const QString& title) override;
    [[nodiscard]] std::optional<ChosenFont> ChooseFont(const ChosenFont& font) override;

private:
    [[nodiscard]] QWidget* Parent() const;

    QPointer<QWidget> parent_;
    NetworkEnumeration* network_ = nullptr;
};

} // namespace netrove

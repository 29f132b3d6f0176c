#pragma once

#include "platform/Dialogs.h"

#include <QPointer>
#include <QUrl>
#include <QWidget>

#include <functional>
#include <optional>

namespace netrove {

/// Message boxes, input boxes and choosers of the desktop. They block all windows of the program
/// until they are answered; texts are shown as they are, never as markup. Escape and the close box
/// mean Cancel or No where there is such a button. They appear over the open dialog, or else over
/// the main window.
class DesktopDialogs : public Dialogs {
public:
    /// The main window; none before it is set.
    void SetParent(QWidget* parent) { parent_ = parent; }
    /// Shows the network and lets the user choose one of its computers; gives its name without
    /// "\\".
    using ComputerChooser =
        std::function<std::optional<QString>(const QString& title, QWidget* parent)>;
    /// Before it is set, no computer can be chosen.
    void SetComputerChooser(ComputerChooser choose) { chooseComputer_ = std::move(choose); }

    MessageAnswer Message(MessageIcon icon, const QString& text, const QString& title,
                          MessageButtons buttons = MessageButtons::Ok) override;
    [[nodiscard]] QString InputBox(const QString& prompt, const QString& title) override;
    [[nodiscard]] std::optional<QString> OpenFile(const FileDialogSetup& setup) override;
    [[nodiscard]] std::optional<QString> SaveFile(const FileDialogSetup& setup) override;
    [[nodiscard]] std::optional<QString> ChooseFolder(const QString& title, bool network,
                                                      const QString& start) override;
    [[nodiscard]] std::optional<QString> ChooseComputer(const QString& title) override;
    [[nodiscard]] std::optional<ChosenFont> ChooseFont(const ChosenFont& font) override;

    /// What ChooseFolder returns for a chosen folder. In the text of an address, names aren't
    /// percent-encoded: "C#", not "C%23".
    [[nodiscard]] static std::optional<QString> FolderName(const QUrl& chosen, bool network);

private:
    [[nodiscard]] QWidget* Parent() const;

    QPointer<QWidget> parent_;
    ComputerChooser chooseComputer_;
};

} // namespace netrove

#pragma once

#include "options/NodeTypes.h"
#include "platform/Dialogs.h"
#include "skins/ProgramDialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <array>

namespace netrove {

/// Asks for one node to exclude: its name and type. It is shown by exec(), once, and read
/// afterwards.
class frmAddNetNode : public ProgramDialog {
    Q_OBJECT

public:
    /// The dialog appears in the middle of `owner`, and over `parent`.
    frmAddNetNode(Dialogs& dialogs, const DialogLook& look, const QWidget* owner, QWidget* parent);
    ~frmAddNetNode() override = default;

    /// The name, "|" and the type; empty if the user gave no answer.
    [[nodiscard]] const QString& NewNetNode() const { return NewNetNode_; }

    /// What follows the last "/" of a path, or else the last "\"; the whole path where there is
    /// neither.
    [[nodiscard]] static QString ParseFolder(const QString& fullPath);

    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeControls();
    [[nodiscard]] QWidget* MakeNameFrame();
    [[nodiscard]] QWidget* MakeTypeFrame();
    void Form_Load(const QWidget* owner);
    void TypeChosen();
    void cmdBrNetNode_Click();
    void cmdOK_Click();
    void Complain(const char* text);

    Dialogs& dialogs_;
    QLineEdit* txtNetNodeName_ = nullptr;
    QPushButton* cmdBrNetNode_ = nullptr;
    QLabel* Label1_ = nullptr;
    std::array<QRadioButton*, NodeTypes.size()> types_{}; ///< in the order of NodeTypes
    QString NewNetNode_;
};

} // namespace netrove

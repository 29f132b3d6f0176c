#pragma once

#include "options/NodeTypes.h"
#include "platform/Dialogs.h"
#include "skins/DialogSkin.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <array>
#include <functional>

namespace netrove {

/// Asks for one node to exclude: its name and type. It is shown by exec(), once, and read
/// afterwards.
class frmAddNetNode : public QDialog {
    Q_OBJECT

public:
    struct Services {
        Dialogs& dialogs;
        const SkinOwner* skin = nullptr;
        std::function<void()> openHelp = {};
    };

    /// It stands in the middle of `owner`, and over `parent`.
    frmAddNetNode(const Services& services, const QWidget* owner, QWidget* parent);
    ~frmAddNetNode() override = default;

    /// The name, "|" and the type; empty without an answer.
    [[nodiscard]] const QString& NewNetNode() const { return NewNetNode_; }

    /// What stands behind the last "/" of a path, or else behind the last "\"; all of it where
    /// there is neither.
    [[nodiscard]] static QString ParseFolder(const QString& fullPath);

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
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

    Services services_;
    DialogSkin skin_;
    QLineEdit* txtNetNodeName_ = nullptr;
    QPushButton* cmdBrNetNode_ = nullptr;
    QLabel* Label1_ = nullptr;
    std::array<QRadioButton*, NodeTypes.size()> types_{}; ///< in the order of NodeTypes
    QString NewNetNode_;
};

} // namespace netrove

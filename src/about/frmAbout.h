#pragma once

#include "about/LinkLabel.h"
#include "online/webfiles/Version.h"
#include "services/ShellServices.h"
#include "skins/DialogSkin.h"

#include <QDialog>
#include <QFrame>
#include <QPlainTextEdit>
#include <QPushButton>

#include <array>
#include <functional>

namespace netrove {

/// What the about box is given. All of it outlives the box.
struct AboutServices {
    ShellServices& shell;
    QString webAddress;                   ///< of the web site
    QString contactAddress;               ///< for letters
    std::function<void()> UpdateMnu = {}; ///< asks for a newer version
    std::function<void()> openHelp = {};  ///< what the key F1 does
    Version version = Version::Own();
};

/// The about box: what the program is, its version and what has changed in which version.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    /// It stands in the middle of the main window and belongs to it. `Owner` is null for one that
    /// keeps the desktop's look.
    frmAbout(const AboutServices& services, const SkinOwner* Owner, QWidget& mainWindow);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeControls();
    void MakeLinks();
    void ArrangePanel();
    [[nodiscard]] QLayout* ArrangeLinks();
    void Arrange();
    void Form_Load(const SkinOwner* Owner);
    void OpenSite(LinkLabel& link, Qt::MouseButton button);
    void imgIcon_MouseDown(const QMouseEvent& event);

    AboutServices services_;
    QWidget& mainWindow_;
    DialogSkin skin_;
    std::array<QFrame*, 2> shpRect_{};
    std::array<QLabel*, 5> lblInfo_{};
    QLabel* imgIcon_;
    QLabel* Image1_;
    QLabel* lblVersion_;
    QLabel* lblDescription_;
    LinkLabel* lblProduct_;
    LinkLabel* lblURL_;
    LinkLabel* lblCopyright_;
    LinkLabel* lblVersionUpdate_;
    QPlainTextEdit* txtStuff_;
    QPushButton* cmdOk_;
};

} // namespace netrove

#pragma once

#include "about/LinkLabel.h"
#include "online/webfiles/Version.h"
#include "services/ShellServices.h"
#include "skins/ProgramDialog.h"

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
    DialogLook look = {};
    Version version = Version::Own();
};

/// The about box: what the program is, its version and what has changed in each version.
class frmAbout : public ProgramDialog {
    Q_OBJECT

public:
    /// It appears in the middle of the main window and belongs to it.
    frmAbout(const AboutServices& services, QWidget& mainWindow);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeControls();
    void MakeLinks();
    void ArrangePanel();
    [[nodiscard]] QLayout* ArrangeLinks();
    void Arrange();
    void Form_Load();
    void OpenSite(LinkLabel& link, Qt::MouseButton button);
    void imgIcon_MouseDown(const QMouseEvent& event);

    AboutServices services_;
    QWidget& mainWindow_;
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

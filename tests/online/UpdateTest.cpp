#include "online/OpenDialog.h"
#include "online/frmUpdate.h"

namespace netrove {
namespace {

const char* const UpToDate = "\r\nYour release = 0.99.5\r\nYou have the latest release of Netrove.";
const char* const CheckFailed = "critical: Error in update: The update check failed. You must "
                                "check for the\r\nnew version of this "
                                "application manually at\r\nhttps://site.example/.";
const char* const DownloadFailed = "critical: Error in download: An error has occured. You must "
                                   "manually download the new\r\nversion of "
                                   "Netrove at https://site.example/.";

const char* const Instructions =
    "information, OK/Cancel(OK): Instructions: This feature will download the installer package\r\n"
    "for the new version of Netrove. After the download\r\nis complete, please exit the current "
    "running version\r\n"
    "of Netrove before installing the new version.";

constexpr QSize Low(317, 134);
constexpr QSize Tall(317, 318);

class UpdateTest : public OpenDialog<frmUpdate> {
protected:
    QString News() { return FindIn<QPlainTextEdit>(*dialog, "txtInfo").toPlainText(); }
};

TEST_F(UpdateTest, NoNewerVersionIsSaid) {
    Open();
    EXPECT_EQ(dialog->contentsRect().size(), Low);
    for (const std::string version : {"0.99.5", "0.98.9"}) {
        Page("Netrove2.ver", ("  tbs_ver:" + version + "  ").c_str());
        Click("cmdCheck");
        EXPECT_EQ(dialogs.TakeWhole(),
                  "information: Netrove update: Web release = " + version + UpToDate);
        EXPECT_TRUE(Button("cmdCancel").hasFocus());
        EXPECT_TRUE(Button("cmdCheck").isEnabled());
        EXPECT_FALSE(Button("cmdDown").isEnabled());
    }
    QTest::keyClick(dialog.get(), Qt::Key_F1);
    EXPECT_EQ(helps, 1);
    Click("cmdCancel");
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(UpdateTest, ANewerVersionIsOffered) {
    Page("Netrove2.ver", "TBS_VER 0.100.0");
    Page("Netrove2.nwz", "TBS_NWZ <b>New</b>\nand better");
    Page("Netrove2.dlf", "TBS_DLF https://site.example/n.deb\r\n");
    Open();
    http.OnRead = [this] {
        EXPECT_EQ(dialog->cursor().shape(), Qt::WaitCursor);
        EXPECT_FALSE(Button("cmdDown").isVisible() && Button("cmdDown").isEnabled());
        EXPECT_EQ(shell.Opened, QStringList());
    };
    Click("cmdCheck");
    EXPECT_EQ(dialog->windowTitle(), Text("Update available from v0.99.5 to v0.100.0"));
    EXPECT_EQ(News(), Text("<b>New</b>\nand better"));
    EXPECT_EQ(dialog->contentsRect().size(), Tall);
    EXPECT_TRUE(Button("cmdDown").hasFocus());
    http.OnRead = {};

    dialogs.Answer = MessageAnswer::Cancel;
    Click("cmdDown");
    EXPECT_EQ(dialogs.WholeBoxes(), Instructions);
    dialogs.Answer = MessageAnswer::Ok;
    Click("cmdDown");
    EXPECT_EQ(shell.Opened, Texts({"https://site.example/n.deb"}));
    EXPECT_TRUE(Button("cmdDown").isEnabled());
    EXPECT_EQ(dialogs.Shown.size(), 2);

    EXPECT_TRUE(ClickAndAct("cmdCheck", [](QWindow& window) {
        for (const int key : {Qt::Key_Return, Qt::Key_Space})
            QTest::keyClick(&window, Qt::Key(key));
    }));
    EXPECT_EQ(shell.Opened.size() + dialogs.Shown.size(), 3) << "the installer isn't started";

    // Without news it stays on offer.
    Page("Netrove2.nwz", "TBS_NWZ");
    Click("cmdCheck");
    EXPECT_TRUE(Button("cmdDown").isVisible());
    EXPECT_EQ(News(), QString());
    http.Pages.remove(Text("https://site.example/files/Netrove2.nwz"));
    Click("cmdCheck");
    EXPECT_EQ(News(), Text("Unable to get news for Netrove."));
    EXPECT_NE(dialog->cursor().shape(), Qt::WaitCursor);
}

TEST_F(UpdateTest, ClosingEndsTheRead) {
    Page("Netrove2.ver", "TBS_VER 1.0.0");
    ExpectClosingEndsTheRead("cmdCheck", "cmdCancel");
    Open();
    Click("cmdCheck");
    EXPECT_FALSE(
        ClickAndAct("cmdDown", [](QWindow& window) { QTest::keyClick(&window, Qt::Key_Escape); }));
    // One that comes with the last byte, too.
    Page("Netrove2.ver", "TBS_VER 0.99.5");
    Open();
    http.OnRead = [this] {
        QMetaObject::invokeMethod(
            dialog.get(), [this] { QTest::keyClick(dialog->windowHandle(), Qt::Key_Escape); },
            Qt::QueuedConnection);
    };
    Click("cmdCheck");
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(UpdateTest, FailuresShowTheSite) {
    Page("Netrove2.ver", "TBS_VER 1.0.0");
    Open();
    Click("cmdCheck");
    for (const char* answer : {"TBS_DFL http://a/", "TBS_DLF file:///bin/sh"}) {
        Page("Netrove2.dlf", answer);
        Click("cmdDown");
        EXPECT_TRUE(dialogs.TakeWhole().ends_with(DownloadFailed)) << answer;
        EXPECT_TRUE(Button("cmdLink").isVisible());
        EXPECT_TRUE(Button("cmdDown").isEnabled());
    }
    for (const char* answer : {"TBS_VRE 1.0.0", "TBS_VER 1.0"}) { // the tall form goes again
        Page("Netrove2.ver", answer);
        Click("cmdCheck");
        EXPECT_EQ(dialogs.TakeWhole(), CheckFailed) << answer;
        EXPECT_EQ(dialog->contentsRect().size(), Low);
        EXPECT_EQ(dialog->windowTitle(), Text("Update"));
        EXPECT_TRUE(Button("cmdLink").hasFocus());
        EXPECT_TRUE(Button("cmdCheck").isEnabled());
        EXPECT_FALSE(Button("cmdDown").isEnabled());
    }
    EXPECT_EQ(shell.Opened, QStringList());
    Click("cmdLink");
    EXPECT_EQ(shell.Opened, Texts({"https://site.example/"}));
}

} // namespace
} // namespace netrove

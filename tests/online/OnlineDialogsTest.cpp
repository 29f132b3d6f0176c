#include "fakes/DialogTest.h"
#include "online/frmDonate.h"
#include "online/frmUpdate.h"
#include "runtime/Yield.h"

#include <QElapsedTimer>
#include <QWindow>

namespace netrove {
namespace {

/// A dialog of version 0.99.5 over a web site in memory.
template <typename Dialog>
class OnlineTest : public DialogTest<Dialog> {
protected:
    using DialogTest<Dialog>::dialog;

    void Open() {
        owner.setGeometry(100, 100, 900, 600);
        owner.show();
        this->ShowDialog(
            std::make_unique<Dialog>(OnlineServices{.http = &http,
                                                    .dialogs = this->dialogs,
                                                    .shell = shellServices,
                                                    .webAddress = Text("https://site.example/"),
                                                    .version = {{0, 99, 5}}},
                                     &owner));
    }

    QPushButton& Button(const char* name) { return FindIn<QPushButton>(*dialog, name); }

    void Page(const char* path, const std::string& text) {
        http.Pages.insert(Text("https://site.example/files/") + Text(path),
                          QString::fromStdString(text));
    }

    /// Presses the button, and lets the user act during the read that begins. Gives whether the
    /// read is to go on.
    bool ClickAndAct(const char* name, const std::function<void(QWindow&)>& act) {
        bool goesOn = true;
        bool hasActed = false;
        http.OnRead = [&] {
            if (std::exchange(hasActed, true))
                return;
            QMetaObject::invokeMethod(
                dialog.get(), [&] { act(*dialog->windowHandle()); }, Qt::QueuedConnection);
            QElapsedTimer clock; // the time that a mnemonic takes to press its button
            clock.start();
            while (goesOn && clock.elapsed() < 300)
                goesOn = WhileWaiting();
            if (!goesOn)
                throw RunTimeError(ErrorNumber::DeviceUnavailable);
        };
        this->Click(name);
        http.OnRead = {};
        QCoreApplication::processEvents();
        return goesOn;
    }

    QWidget owner;
    RecordedShell shell;
    ShellServices shellServices{shell, this->dialogs};
    RecordedHttp http;
};

class DonateTest : public OnlineTest<frmDonate> {
protected:
    void GetLinks(const std::string& page) {
        Page("Netrove.don", page);
        Click("cmdUp");
    }
    /// The captions of the links, and what a click on each opens.
    std::string Links() {
        shell.Opened.clear();
        QStringList captions;
        for (const char* link : {"cmdLink(0)", "cmdLink(1)", "cmdLink(2)"}) {
            captions.append(Button(link).text());
            Click(link);
        }
        return (captions + shell.Opened).join(u'|').toStdString();
    }
};

TEST_F(DonateTest, LinksComeFromTheSite) {
    Open();
    EXPECT_FALSE(IsShown("cmdLink(0)"));
    http.OnRead = [this] {
        EXPECT_FALSE(IsEnabled("cmdUp") || IsEnabled("cmdLink(0)"));
        EXPECT_EQ(dialog->cursor().shape(), Qt::WaitCursor);
    };
    GetLinks(" tbs_don Pal https://a.example/ Coin http://b.example/ ");
    EXPECT_EQ(dialog->contentsRect().size(), QSize(370, 251));
    EXPECT_TRUE(Button("cmdLink(0)").hasFocus());
    EXPECT_EQ(Links(), "Pal|Coin|site.example/|"
                       "https://a.example/|http://b.example/|https://site.example/");
    EXPECT_EQ(dialogs.Boxes(), "");

    // Whatever the captions are, the dialog keeps its shape.
    GetLinks("TBS_DON \x02\xE2\x80\xAE" + std::string(100'000, 'w') +
             " http://a/ A\r\nB http://b/");
    EXPECT_EQ(dialog->contentsRect().size(), QSize(370, 251));
    EXPECT_LT(Button("cmdLink(0)").text().size(), 100);
    EXPECT_EQ(Button("cmdLink(1)").text(), Text("A  B"));
}

TEST_F(DonateTest, WhatComesDuringTheReadIsntForTheLinks) {
    Open();
    GetLinks("TBS_DON Pal https://a.example/");
    const QPoint link = Button("cmdLink(0)").geometry().center();
    EXPECT_TRUE(ClickAndAct("cmdUp", [link](QWindow& window) {
        for (const int key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab})
            QTest::keyClick(&window, Qt::Key(key));
        QTest::mouseClick(&window, Qt::LeftButton, {}, link);
        QTest::keyPress(&window, Qt::Key_Return);
    }));
    // The key stays down: the window system tells of repetitions in one of two ways.
    QWindow& window = *dialog->windowHandle();
    qt_handleKeyEvent(&window, QEvent::KeyPress, Qt::Key_Return, {}, Text("\r"), true);
    for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent sameTime(type, Qt::Key_Return, Qt::NoModifier, Text("\r"));
        sameTime.setTimestamp(1'000'000);
        QCoreApplication::sendEvent(&window, &sameTime);
    }
    EXPECT_EQ(shell.Opened, QStringList());
    EXPECT_TRUE(Button("cmdLink(0)").hasFocus());
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(shell.Opened, Texts({"https://a.example/"}));
}

TEST_F(DonateTest, FailuresLeaveTheSiteInAllLinks) {
    const char* const failed =
        "critical: Error in update: Could not get the update for the links. Click on one of "
        "the\r\nexisting links to go to official Tarn Bridge Software site and\r\nuse the donation "
        "links listed there.";
    Open();
    GetLinks("TBS_DON Pal https://a.example/");
    GetLinks("TBS_DON Pal https://a.example/ Sh file:///bin/sh");
    EXPECT_EQ(dialogs.TakeWhole(), failed);
    EXPECT_EQ(Links(), "site.example/|site.example/|site.example/|"
                       "https://site.example/|https://site.example/|https://site.example/");
    http.Pages.clear();
    Click("cmdUp");
    EXPECT_EQ(dialogs.TakeWhole(), failed);
    EXPECT_TRUE(IsEnabled("cmdUp"));
    EXPECT_NE(dialog->cursor().shape(), Qt::WaitCursor);
}

constexpr QSize Low(317, 134);
constexpr QSize Tall(317, 318);

class UpdateTest : public OnlineTest<frmUpdate> {
protected:
    QString News() { return Find<QPlainTextEdit>("txtInfo").toPlainText(); }
};

TEST_F(UpdateTest, NoNewerVersionIsSaid) {
    Open();
    for (const std::string version : {"0.99.5", "0.98.9"}) {
        Page("Netrove2.ver", "  tbs_ver:" + version + "  ");
        Click("cmdCheck");
        EXPECT_EQ(dialogs.TakeWhole(), "information: Netrove update: Web release = " + version +
                                           "\r\nYour release = 0.99.5\r\nYou have the latest "
                                           "release of Netrove.");
        EXPECT_EQ(dialog->contentsRect().size(), Low);
        EXPECT_TRUE(Button("cmdCancel").hasFocus());
        EXPECT_TRUE(IsEnabled("cmdCheck") && !IsEnabled("cmdDown"));
    }
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
        EXPECT_FALSE(IsShown("cmdDown") && IsEnabled("cmdDown"));
    };
    Click("cmdCheck");
    EXPECT_EQ(dialog->windowTitle(), Text("Update available from v0.99.5 to v0.100.0"));
    EXPECT_EQ(News(), Text("<b>New</b>\nand better"));
    EXPECT_EQ(dialog->contentsRect().size(), Tall);
    EXPECT_TRUE(Button("cmdDown").hasFocus());
    http.OnRead = {};

    dialogs.Answer = MessageAnswer::Cancel;
    Click("cmdDown");
    EXPECT_EQ(dialogs.WholeBoxes(),
              "information, OK/Cancel(OK): Instructions: This feature will download the installer "
              "package\r\nfor the new version of Netrove. After the download\r\nis complete, "
              "please exit the current running version\r\nof Netrove before installing the new "
              "version.");
    EXPECT_EQ(shell.Opened, QStringList());
    dialogs.Answer = MessageAnswer::Ok;
    Click("cmdDown");
    EXPECT_EQ(shell.Opened, Texts({"https://site.example/n.deb"}));
    EXPECT_EQ(dialogs.Shown.size(), 2);
    EXPECT_TRUE(ClickAndAct("cmdCheck", [](QWindow& window) {
        for (const int key : {Qt::Key_Return, Qt::Key_Space})
            QTest::keyClick(&window, Qt::Key(key));
    }));
    EXPECT_EQ(shell.Opened.size() + dialogs.Shown.size(), 3) << "the installer isn't started";

    // Without news it stays on offer.
    Page("Netrove2.nwz", "TBS_NWZ");
    Click("cmdCheck");
    EXPECT_TRUE(IsShown("cmdDown"));
    EXPECT_EQ(News(), QString());
    http.Pages.remove(Text("https://site.example/files/Netrove2.nwz"));
    Click("cmdCheck");
    EXPECT_EQ(News(), Text("Unable to get news for Netrove."));
    EXPECT_NE(dialog->cursor().shape(), Qt::WaitCursor);
}

TEST_F(UpdateTest, ClosingEndsTheRead) {
    Page("Netrove2.ver", "TBS_VER 1.0.0");
    const std::function<void(QWindow&)> ways[] = {
        [](QWindow& window) { QTest::keyClick(&window, Qt::Key_Escape); },
        [](QWindow& window) { QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier); },
        [](QWindow& window) { window.close(); },
        [&](QWindow& window) {
            const QPoint place = Button("cmdCancel").geometry().center();
            QTest::mouseClick(&window, Qt::LeftButton, {}, place);
        }};
    for (const auto& close : ways) {
        Open();
        EXPECT_FALSE(ClickAndAct("cmdCheck", close)) << &close - ways;
        EXPECT_FALSE(dialog->isVisible()) << &close - ways;
    }
    Open();
    Click("cmdCheck");
    EXPECT_FALSE(ClickAndAct("cmdDown", ways[0]));
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
        EXPECT_TRUE(dialogs.TakeWhole().ends_with(
            "critical: Error in download: An error has occured. You must manually download the "
            "new\r\nversion of Netrove at https://site.example/."))
            << answer;
        EXPECT_TRUE(IsShown("cmdLink") && IsEnabled("cmdDown"));
    }
    for (const char* answer : {"TBS_VRE 1.0.0", "TBS_VER 1.0"}) { // the tall form goes again
        Page("Netrove2.ver", answer);
        Click("cmdCheck");
        EXPECT_EQ(dialogs.TakeWhole(),
                  "critical: Error in update: The update check failed. You must check for "
                  "the\r\nnew version of this application manually at\r\nhttps://site.example/.")
            << answer;
        EXPECT_EQ(dialog->contentsRect().size(), Low);
        EXPECT_EQ(dialog->windowTitle(), Text("Update"));
        EXPECT_TRUE(Button("cmdLink").hasFocus());
        EXPECT_TRUE(IsEnabled("cmdCheck") && !IsEnabled("cmdDown"));
    }
    EXPECT_EQ(shell.Opened, QStringList());
    Click("cmdLink");
    EXPECT_EQ(shell.Opened, Texts({"https://site.example/"}));
}

} // namespace
} // namespace netrove

#include "online/OpenDialog.h"
#include "online/frmDonate.h"

namespace netrove {
namespace {

const char* const Failed =
    "critical: Error in update: Could not get the update for the links. Click on one of "
    "the\r\nexisting "
    "links to go to official Tarn Bridge Software site and\r\nuse the donation links listed there.";

class DonateTest : public OpenDialog<frmDonate> {
protected:
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
    EXPECT_EQ(dialog->contentsRect().size(), QSize(370, 150));
    EXPECT_TRUE(
        FindIn<QPlainTextEdit>(*dialog, "txtDon")
            .toPlainText()
            .endsWith(Text("Please click on \"Get Links\" to get the selections. Thank You."
                           "\n\n(You will need to be connected to the internet to reach the "
                           "websites)")));
    const QPoint off = dialog->geometry().center() - owner.geometry().center();
    EXPECT_LE(off.manhattanLength(), 40) << "it isn't in the middle of its owner";
    EXPECT_FALSE(Button("cmdLink(0)").isVisible());
    Page("Netrove.don", " tbs_don Pal https://a.example/ Coin http://b.example/ ");
    http.OnRead = [this] {
        EXPECT_FALSE(Button("cmdUp").isEnabled());
        EXPECT_FALSE(Button("cmdLink(0)").isEnabled());
        EXPECT_EQ(dialog->cursor().shape(), Qt::WaitCursor);
    };
    Click("cmdUp");
    EXPECT_EQ(dialog->contentsRect().size(), QSize(370, 251));
    EXPECT_TRUE(Button("cmdLink(0)").hasFocus());
    EXPECT_EQ(Links(), "Pal|Coin|site.example/|"
                       "https://a.example/|http://b.example/|https://site.example/");
    EXPECT_EQ(dialogs.Boxes(), "");

    // Whatever the captions are, the dialog keeps its shape.
    Page("Netrove.don",
         ("TBS_DON \x02\xE2\x80\xAE" + std::string(100'000, 'w') + " http://a/ A\r\nB http://b/")
             .c_str());
    Click("cmdUp");
    EXPECT_EQ(dialog->contentsRect().size(), QSize(370, 251));
    EXPECT_LT(Button("cmdLink(0)").text().size(), 100);
    EXPECT_EQ(Button("cmdLink(1)").text(), Text("A  B"));
}

TEST_F(DonateTest, WhatComesDuringTheReadIsntForTheLinks) {
    Open();
    Page("Netrove.don", "TBS_DON Pal https://a.example/");
    Click("cmdUp");
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
    ExpectClosingEndsTheRead("cmdUp", "cmdOK");
}

TEST_F(DonateTest, FailuresLeaveTheSiteInAllLinks) {
    Open();
    Page("Netrove.don", "TBS_DON Pal https://a.example/");
    Click("cmdUp");
    Page("Netrove.don", "TBS_DON Pal https://a.example/ Sh file:///bin/sh");
    Click("cmdUp");
    EXPECT_EQ(dialogs.TakeWhole(), Failed);
    EXPECT_EQ(Links(), "site.example/|site.example/|site.example/|"
                       "https://site.example/|https://site.example/|https://site.example/");
    http.Pages.clear();
    Click("cmdUp");
    EXPECT_EQ(dialogs.TakeWhole(), Failed);
    EXPECT_TRUE(Button("cmdUp").isEnabled());
    EXPECT_NE(dialog->cursor().shape(), Qt::WaitCursor);
}

} // namespace
} // namespace netrove

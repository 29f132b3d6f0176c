#include "gui/WindowTest.h"
#include "online/frmUpdate.h"
#include "online/webfiles/Version.h"

namespace netrove {
namespace {

class HelpMenuTest : public WindowTest {
protected:
    void SetUp() override { Open(); }

    /// Picks an item that opens a modal dialog of that name, uses that and closes it.
    void InDialog(const char* item, const char* name,
                  const std::function<void(QWidget&)>& use = {}) {
        UseDialog<QWidget>([&] { Trigger(item); },
                           [&](QWidget& dialog) {
                               EXPECT_EQ(dialog.objectName(), Text(name));
                               if (use)
                                   use(dialog);
                               dialog.close();
                           });
    }
};

TEST_F(HelpMenuTest, ItemsOpenTheirDialogs) {
    InDialog("mnuDonate", "frmDonate");
    http.Pages.insert(Text("https://www.example.com/files/Netrove2.ver"),
                      Text("TBS_VER ") + Version::Own().Text());
    InDialog("UpdateMnu", "frmUpdate",
             [](QWidget& dialog) { FindIn<QPushButton>(dialog, "cmdCheck").click(); });
    EXPECT_TRUE(dialogs.Take().starts_with("Netrove update: "));

    InDialog("mnuAbout1", "frmAbout", [this](QWidget& about) {
        QTest::mouseClick(&FindIn(about, "lblCopyright"), Qt::LeftButton);
        EXPECT_EQ(shell.Opened, Texts({"mailto:netrove@example.com"}));
        QTest::keyClick(&about, Qt::Key_F1);
        EXPECT_TRUE(shell.Opened.value(1).endsWith(Text("Netrove.html")));
        UseDialog<frmUpdate>(
            [&] { QTest::mouseClick(&FindIn(about, "lblVersionUpdate"), Qt::LeftButton); },
            [](frmUpdate& update) { update.close(); });
    });
}

TEST_F(HelpMenuTest, ARightClickOnAHeaderOffersHelp) {
    const struct {
        const char* list;
        int tab;
        const char* text;
    } cases[] = {{"lvwResults", 0, "If the file is an MP3 file then the length"},
                 {"lvwDownloads", 1, "The status of the file:"}};
    for (const auto& [name, tab, text] : cases) {
        Find<QTabWidget>("SSTab1").setCurrentIndex(tab);
        ClickHeader(Find<ListView>(name), 6, Qt::RightButton);
        Pick("PopUp3Mnu", "HelpColMnu");
        QWidget* help = QApplication::activePopupWidget();
        ASSERT_TRUE(help) << name;
        EXPECT_TRUE(FindIn<QLabel>(*help, "Label1").text().startsWith(Text(text)));
        QTest::mouseClick(help, Qt::LeftButton);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
}

} // namespace
} // namespace netrove

#include "controls/ListHeader.h"
#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "online/webfiles/Version.h"

#include <QApplication>
#include <QTimer>

namespace netrove {
namespace {

class HelpMenuTest : public testing::Test, public TestDesktop, public WindowDriver {
protected:
    HelpMenuTest() : WindowDriver(window) {}
    void SetUp() override { Open(); }

    /// Picks an item that opens a modal dialog, uses that and closes it; gives its name.
    QString InDialog(const char* item, const std::function<void(QWidget&)>& use = {}) {
        QString name;
        QTimer::singleShot(0, &window, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            name = dialog->objectName();
            if (use)
                use(*dialog);
            dialog->close();
        });
        Find<QAction>(item).trigger();
        return name;
    }

    MemoryNetwork network;
    frmNetrove window{Services(network)};
};

TEST_F(HelpMenuTest, ItemsOpenTheirDialogs) {
    EXPECT_EQ(InDialog("mnuDonate"), Text("frmDonate"));
    http.Pages.insert(Text("https://www.example.com/files/Netrove2.ver"),
                      Text("TBS_VER ") + Version::Own().Text());
    EXPECT_EQ(InDialog("UpdateMnu",
                       [](QWidget& dialog) {
                           dialog.findChild<QPushButton*>(Text("cmdCheck"))->click();
                       }),
              Text("frmUpdate"));
    EXPECT_TRUE(dialogs.Shown.value(0).startsWith(Text("Netrove update: ")));

    EXPECT_EQ(InDialog("mnuAbout1",
                       [this](QWidget& about) {
                           QTest::mouseClick(about.findChild<QWidget*>(Text("lblCopyright")),
                                             Qt::LeftButton);
                           EXPECT_EQ(shell.Opened, QStringList{Text("mailto:netrove@example.com")});
                           QTest::keyClick(&about, Qt::Key_F1);
                           EXPECT_TRUE(shell.Opened.value(1).endsWith(Text("Netrove.html")));
                           QString nested;
                           QTimer::singleShot(0, &window, [&] {
                               nested = QApplication::activeModalWidget()->objectName();
                               QApplication::activeModalWidget()->close();
                           });
                           QTest::mouseClick(about.findChild<QWidget*>(Text("lblVersionUpdate")),
                                             Qt::LeftButton);
                           EXPECT_EQ(nested, Text("frmUpdate"));
                       }),
              Text("frmAbout"));
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
        ListHeader& header = *Find<ListView>(name).Header();
        QTest::mouseClick(header.viewport(), Qt::RightButton, Qt::NoModifier,
                          QPoint(header.sectionViewportPosition(5) + 20, header.height() / 2));
        Pick("PopUp3Mnu", "HelpColMnu");
        QWidget* help = QApplication::activePopupWidget();
        ASSERT_TRUE(help) << name;
        EXPECT_TRUE(help->findChild<QLabel*>(Text("Label1"))->text().startsWith(Text(text)));
        QTest::mouseClick(help, Qt::LeftButton);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
}

} // namespace
} // namespace netrove

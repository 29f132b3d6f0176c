#include "OpenOptions.h"
#include "controls/Color.h"
#include "fakes/UnusualSettings.h"
#include "skins/SkinControls.h"

namespace netrove {
namespace {

using Options = OpenOptions;

TEST_F(Options, WhatIsLoadedIsTakenBack) {
    const Settings defaults = settings;
    Settings unusual = UnusualSettings(folder.path());
    unusual.DateFormat = Text(" YYYY-MM-DD ");
    unusual.ExcNetNodes = Texts({"a|False|Network", " ||x", "b||workstation"});
    for (const Settings& before : {defaults, unusual}) {
        settings = before;
        settings.DefaultNetNodes = defaults.DefaultNetNodes;
        Open();
        EXPECT_FALSE(IsEnabled("cmdApply"));
        EXPECT_EQ(settings.CurrentComputerName, Text("\\\\THISONE"));
        EXPECT_EQ(IsEnabled("optPreIcons"), before.ShowListIcons);
        EXPECT_EQ(IsEnabled("lvwExcNetNode"), before.ExcludeNetNodes);
        QTest::keyClick(dialog.get(), Qt::Key_Return);
        EXPECT_FALSE(dialog->isVisible());
        Settings expected = before;
        expected.SaveFolder += u'/';
        expected.DateFormat = expected.DateFormat.trimmed();
        if (!before.ExcludeNetNodes)
            expected.ExcNetNodes = Texts({"a|False|Network", "b|False|workstation"});
        EXPECT_EQ(Described(settings), Described(expected));
    }
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(Options, WhatIsWrongComesToTheFront) {
    const std::string place = "critical: Folder Error...: ";
    const std::string missing = place + "Folder does not exist.";
    const std::string files = "critical: File Number Error...: ";
    const std::string copies = "critical: Concurrent Downloads Error...: ";
    const struct {
        const char* control;
        const char* text;
        int tab;
        std::string box; ///< empty where nothing is wrong
    } cases[] = {
        {"SaveFolTxt", "  ", 3, place + "Need a folder."},
        {"SaveFolTxt", "/no/such/folder", 3, missing},
        {"SaveFolTxt", ".", 3, missing},
        {"SaveFolTxt", " ~ ", 3, ""},
        {"SaveFolTxt", " /etc/passwd ", 3, ""},
        {"MaxFilesTxt", " ", 2, files + "Need number of files."},
        {"MaxFilesTxt", "abc", 2, files + "Number of files must be an integer."},
        {"MaxFilesTxt", "0", 2, files + "Number of files must be positive & non-zero."},
        {"MaxFilesTxt", "32001", 2, files + "Number of files must be less than 32,001."},
        {"MaxFilesTxt", " 32000 ", 2, ""},
        {"ConDLTxt", "", 3, copies + "Need number of concurrent downloads."},
        {"ConDLTxt", "5 or so", 3, copies + "Number of concurrent downloads must be an integer."},
        {"ConDLTxt", "0", 3,
         copies + "Number of concurrent downloads must be positive & non-zero."},
        {"ConDLTxt", "10", 3, ""},
        {"ConDLTxt", "11", 3,
         "exclamation, Yes/No(No): Concurrent Downloads Warning...: Recommended concurrent "
         "downloads is between 1 and 5.\r\nWould you like to proceed?"},
    };
    const Settings before = settings;
    dialogs.Answer = MessageAnswer::No;
    for (const auto& [control, text, tab, box] : cases) {
        SCOPED_TRACE(control + std::string(text));
        settings = before;
        Open();
        Enter(control, Text(text));
        int tabAtBox = -1;
        dialogs.OnMessage = [&] { tabAtBox = Find<QTabWidget>("SSTab1").currentIndex(); };
        Find<QTabWidget>("SSTab1").setCurrentIndex(4);
        Click("OKCmd");
        EXPECT_EQ(dialogs.TakeWhole(), box);
        EXPECT_EQ(dialog->ApplyFailed(), !box.empty());
        EXPECT_EQ(dialog->isVisible(), !box.empty());
        EXPECT_EQ(settings.SaveFolder.endsWith(u'/'), box.empty())
            << "nothing is taken before all checks";
        EXPECT_TRUE(settings.SaveFolder.startsWith(u'/'));
        if (!box.empty()) {
            EXPECT_EQ(tabAtBox, tab);
            EXPECT_TRUE(Find<QWidget>(control).hasFocus());
        }
    }
}

TEST_F(Options, NumbersThatDoNotFitEndTheTaking) {
    Open();
    Enter("MaxFilesTxt", Text("12.5"));
    Enter("ConDLTxt", Text("40000"));
    Click("chkTrouble");
    dialogs.Answer = MessageAnswer::Yes;
    Click("cmdApply");
    EXPECT_EQ(dialogs.Shown.last(), Text("Options Error...: 6\r\nOverflow"));
    EXPECT_EQ(settings.SaveFolder, folder.path() + u'/');
    EXPECT_EQ(settings.MaxReturnFiles, 12);
    EXPECT_EQ(settings.MaxConcurrentDownloads, 5);
    EXPECT_EQ(settings.Troubleshooting, 0);
    EXPECT_FALSE(dialog->ApplyFailed() || IsEnabled("cmdApply"));
}

TEST_F(Options, ListsChangeAtOnceAndRemainAfterCancel) {
    const auto choose = [this](double points) {
        Open();
        dialogs.Font = [points](ChosenFont font) {
            font.points = points;
            font.bold = true;
            font.underline = true;
            font.charSet = 2;
            return font;
        };
        Click("cmdChangeFont");
    };
    choose(12);
    EXPECT_TRUE(IsEnabled("cmdApply"));
    EXPECT_TRUE(Find<QWidget>("txtFont").font().bold());
    EXPECT_FALSE(results->font().bold()) << "the sample alone";
    Click("chkCol");
    Click("cmdApply");
    EXPECT_FALSE(IsEnabled("cmdApply"));
    Click("optYesMin");
    EXPECT_TRUE(IsEnabled("cmdApply"));
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(settings.MinToTray);
    choose(20); // chosen, but not taken
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    for (const ListView* list : {results, downloads}) {
        EXPECT_EQ(list->font().pointSizeF(), 12);
        EXPECT_TRUE(list->font().bold());
        EXPECT_FALSE(list->font().underline());
        EXPECT_EQ(list->BackColor(), QColor(Qt::white));
    }
    EXPECT_EQ(settings.Font_CharSet, 2);
}

TEST_F(Options, DefaultsTakeEffectWithApply) {
    Settings expected = settings;
    expected.SaveFolder = folder.filePath(Text("Downloads/"));
    QDir().mkdir(expected.SaveFolder);
    settings = UnusualSettings(folder.path());
    settings.DefaultNetNodes = expected.DefaultNetNodes;
    expected.SkinIndex = settings.SkinIndex;
    const std::string before = Described(settings);
    for (const char* button : {"CancelCmd", "OKCmd"}) {
        EXPECT_EQ(Described(settings), before);
        Open();
        Click("cmdDefaults");
        EXPECT_TRUE(IsEnabled("cmdApply"));
        Click(button);
    }
    EXPECT_EQ(Described(settings), Described(expected));
    EXPECT_EQ(results->font().family(), Text("Arial"));
    EXPECT_EQ(results->BackColor(), ToColor(settings.ResultsBackColor));
    EXPECT_EQ(downloads->BackColor(), ToColor(settings.DownloadsBackColor));
    EXPECT_EQ(dialogs.Boxes(), "");
}

} // namespace
} // namespace netrove

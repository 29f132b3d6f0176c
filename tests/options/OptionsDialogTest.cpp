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

TEST_F(Options, LoadShowsUnusualSettings) {
    settings.SizeFormat = 3;
    settings.SizeNumDec = 5;
    settings.Troubleshooting = 2;
    settings.ExcNetNodes.clear();
    Open();
    EXPECT_TRUE(IsOn("optB"));
    EXPECT_EQ(Find<QComboBox>("cboNumDec").currentIndex(), 0);
    EXPECT_FALSE(IsEnabled("cboNumDec"));
    EXPECT_FALSE(IsOn("chkTrouble"));
    EXPECT_TRUE(IsOn("optNoExcNetNode"));
    EXPECT_FALSE(settings.ExcludeNetNodes) << "at once, without any entry";
    EXPECT_EQ(TextOf("txtOS") + TextOf("txtUser") + TextOf("txtOSver"), Text("TEST OStester1.2"));

    for (const auto& [entry, failure] :
         {std::pair("Temp", "9\r\n"), std::pair("Temp|maybe|Folder", "13\r\n")}) {
        settings.ExcNetNodes = {Text(entry)};
        Open();
        EXPECT_TRUE(dialogs.Take().starts_with(std::string("frmOpts.Form_Load Error: ") + failure));
    }
}

TEST_F(Options, WhatIsWrongComesToTheFront) {
    const std::string folderMissing = "critical: Folder Error...: Folder does not exist.";
    const std::string files = "critical: File Number Error...: ";
    const std::string filesPositive = files + "Number of files must be positive & non-zero.";
    const std::string copies = "critical: Concurrent Downloads Error...: ";
    const std::string copiesNeeded = copies + "Need number of concurrent downloads.";
    const std::string copiesInteger = copies + "Number of concurrent downloads must be an integer.";
    const std::string copiesPositive =
        copies + "Number of concurrent downloads must be positive & non-zero.";
    const std::string manyCopies = "exclamation, Yes/No(No): Concurrent Downloads Warning...: "
                                   "Recommended concurrent downloads is between 1 and "
                                   "5.\r\nWould you like to proceed?";
    const struct {
        const char* control;
        const char* text;
        int tab;
        std::string box; ///< empty where nothing is wrong
    } cases[] = {
        {"SaveFolTxt", "  ", 3, "critical: Folder Error...: Need a folder."},
        {"SaveFolTxt", "/no/such/folder", 3, folderMissing},
        {"SaveFolTxt", "\\\\S\\D", 3, folderMissing},
        {"SaveFolTxt", ".", 3, folderMissing},
        {"SaveFolTxt", " ~ ", 3, ""},
        {"SaveFolTxt", " /etc/passwd ", 3, ""},
        {"MaxFilesTxt", " ", 2, files + "Need number of files."},
        {"MaxFilesTxt", "abc", 2, files + "Number of files must be an integer."},
        {"MaxFilesTxt", "0", 2, filesPositive},
        {"MaxFilesTxt", "32001", 2, files + "Number of files must be less than 32,001."},
        {"MaxFilesTxt", " 32000 ", 2, ""},
        {"ConDLTxt", "", 3, copiesNeeded},
        {"ConDLTxt", "5 or so", 3, copiesInteger},
        {"ConDLTxt", "0", 3, copiesPositive},
        {"ConDLTxt", "10", 3, ""},
        {"ConDLTxt", "11", 3, manyCopies},
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

TEST_F(Options, ExclusionsAreCheckedWhileTheyAreOn) {
    Open();
    for (int row = 1; row <= List().Count(); ++row)
        List().SetChecked(row, false);
    // One thing after the other, whether or not cmdApply is enabled.
    for (const char* field : {"SaveFolTxt", "MaxFilesTxt", "ConDLTxt"})
        Enter(field, Text("0"));
    const std::tuple<const char*, const char*, const char*> repairs[] = {
        {"SaveFolTxt", "/", "critical: Folder Error"},
        {"MaxFilesTxt", "1", "critical: File Number Error"},
        {"ConDLTxt", "1", "critical: Concurrent Downloads Error"}};
    for (const auto& [field, right, box] : repairs) {
        Click("OKCmd");
        EXPECT_TRUE(dialogs.TakeWhole().starts_with(box)) << box;
        Enter(field, Text(right));
    }
    Click("OKCmd");
    EXPECT_EQ(dialogs.TakeWhole(), "critical: Exclude Folders Error...: You have selected to "
                                   "exlude folders but have none checked.");
    List().Clear();
    Click("OKCmd");
    EXPECT_EQ(dialogs.TakeWhole(), "critical: Exclude Folders Error...: You have selected to "
                                   "exlude folders but the list is empty.");
    EXPECT_EQ(Find<QTabWidget>("SSTab1").currentIndex(), 1);
    EXPECT_TRUE(List().hasFocus());
    Click("optNoExcNetNode");
    EXPECT_EQ(List().BackColor(), ToColor(ButtonFaceColor));
    Click("cmdApply");
    EXPECT_EQ(dialogs.Boxes(), "");
    EXPECT_EQ(settings.ExcNetNodes, QStringList());
    EXPECT_FALSE(IsEnabled("cmdApply"));
}

TEST_F(Options, NumbersThatDoNotFitEndTheTaking) {
    Open();
    Enter("MaxFilesTxt", Text("12.5"));
    Enter("ConDLTxt", Text("40000"));
    Click("chkTrouble");
    dialogs.Answer = MessageAnswer::Yes;
    Click("cmdApply");
    ASSERT_EQ(dialogs.Shown.size(), 2);
    EXPECT_EQ(dialogs.Shown[1], Text("Options Error...: 6\r\nOverflow"));
    EXPECT_EQ(settings.SaveFolder, folder.path() + u'/');
    EXPECT_EQ(settings.MaxReturnFiles, 12);
    EXPECT_EQ(settings.MaxConcurrentDownloads, 5);
    EXPECT_EQ(settings.Troubleshooting, 0);
    EXPECT_FALSE(dialog->ApplyFailed());
    EXPECT_FALSE(IsEnabled("cmdApply"));
}

TEST_F(Options, ListsChangeAtOnceAndRemainAfterCancel) {
    Open();
    dialogs.Font = [](ChosenFont font) {
        EXPECT_EQ(font.points, 8.25);
        font.points = 12;
        font.bold = true;
        font.underline = true;
        font.charSet = 2;
        return font;
    };
    Click("cmdChangeFont");
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
    for (const ListView* list : {results, downloads}) {
        EXPECT_EQ(list->font().pointSizeF(), 12);
        EXPECT_TRUE(list->font().bold());
        EXPECT_FALSE(list->font().underline());
        EXPECT_EQ(list->BackColor(), QColor(Qt::white));
    }
    EXPECT_EQ(settings.Font_CharSet, 2);

    // Chosen, but not taken; then back to the lists' own colours.
    Open();
    dialogs.Font = [](ChosenFont font) { return font.points = 20, font; };
    Click("cmdChangeFont");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_EQ(results->font().pointSizeF(), 12);
    Open();
    Click("chkCol");
    Click("OKCmd");
    EXPECT_EQ(results->BackColor(), ToColor(settings.ResultsBackColor));
    EXPECT_EQ(downloads->BackColor(), ToColor(settings.DownloadsBackColor));
}

TEST_F(Options, ChoosersFailAloud) {
    Open();
    dialogs.Font = [](const ChosenFont& /*font*/) -> ChosenFont {
        throw RunTimeError(ErrorNumber::OutOfMemory);
    };
    Click("cmdChangeFont");
    EXPECT_EQ(dialogs.WholeBoxes(), "critical: Options Error...: 7\r\nOut of memory");
    dialogs.Font = [](const ChosenFont& /*font*/) -> ChosenFont { throw RunTimeError(32755, {}); };
    Click("cmdChangeFont");
    EXPECT_EQ(dialogs.Shown.size(), 1) << "cancelled";
    EXPECT_FALSE(IsEnabled("cmdApply"));

    Click("BrowseFolCmd");
    EXPECT_EQ(dialogs.Whole.last(),
              Text("folder: In what folder do you want to save your files?: ") + folder.path());
    EXPECT_EQ(TextOf("SaveFolTxt"), folder.path());
    dialogs.Folder = Text("/tmp");
    Click("BrowseFolCmd");
    EXPECT_EQ(TextOf("SaveFolTxt"), Text("/tmp"));
    EXPECT_TRUE(IsEnabled("cmdApply"));
}

TEST_F(Options, DefaultsTakeEffectWithApply) {
    const Settings defaults = settings;
    settings = UnusualSettings(folder.path());
    settings.DefaultNetNodes = defaults.DefaultNetNodes;
    QDir(folder.path()).mkdir(Text("Downloads"));
    Open();
    const std::string before = Described(settings);
    Click("cmdDefaults");
    EXPECT_TRUE(IsEnabled("cmdApply"));
    Click("CancelCmd");
    EXPECT_EQ(Described(settings), before);
    Open();
    Click("cmdDefaults");
    Click("OKCmd");
    Settings expected = defaults;
    expected.SaveFolder = folder.filePath(Text("Downloads/"));
    EXPECT_EQ(Described(settings), Described(expected));
    EXPECT_EQ(results->font().family(), Text("Arial"));
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(Options, FormatsShowTheirEffect) {
    Open();
    Click("optB");
    Click("optMB");
    EXPECT_TRUE(IsEnabled("cboNumDec"));
    Click("optYesIcons");
    EXPECT_TRUE(IsEnabled("optSysIcons") && IsEnabled("optPreIcons"));
    for (const auto& [format, shown] :
         TextPairs{{"YYYY/M/D h:nn", "1999/9/18 14:32"}, {"MM/DD/YY", "09/18/99"}, {"", ""}}) {
        Enter("txtDateFormat", Text(format));
        EXPECT_EQ(Find<QLabel>("lblDateEx").text(), Text(shown));
    }
    Enter("txtDateFormat", QString(500, u'-'));
    QCoreApplication::processEvents();
    EXPECT_TRUE(Find<QWidget>("txtDateFormat").visibleRegion().boundingRect().size() ==
                Find<QWidget>("txtDateFormat").size())
        << "a long one moves nothing out of the dialog";
    Enter("txtDateFormat", QString());
    Click("cmdApply");
    EXPECT_EQ(settings.SizeNumDec, 0) << "it stays";
    EXPECT_EQ(settings.DateFormat, QString());
}

/// Every control that can have the focus has a name, and Tab goes through all pages from top to
/// bottom.
TEST_F(Options, CanBeUsedWithTheKeyboardAlone) {
    Open();
    auto& tabs = Find<QTabWidget>("SSTab1");
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.tabBar()->setFocus();
        QStringList passed;
        int y = 0;
        for (int step = 0; step < 40; ++step) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QWidget* focused = QApplication::focusWidget();
            if (focused == tabs.tabBar() || passed.contains(focused->objectName()))
                break;
            passed.append(focused->objectName());
            QAccessibleInterface* face = QAccessible::queryAccessibleInterface(focused);
            EXPECT_FALSE(face->text(QAccessible::Name).isEmpty()) << passed.last().toStdString();
            const int top = focused->mapTo(dialog.get(), QPoint()).y();
            EXPECT_TRUE(top >= y || top + focused->height() > y) << passed.last().toStdString();
            y = top;
        }
        EXPECT_TRUE(passed.contains(Text("CancelCmd")));
        int reachable = 0;
        for (const QWidget* control : tabs.widget(tab)->findChildren<QWidget*>()) {
            const QString name = control->objectName();
            const auto* option = qobject_cast<const QRadioButton*>(control);
            if (control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) != 0 &&
                (!option || option->isChecked()) && !name.isEmpty() && !name.startsWith(u"qt_")) {
                ++reachable;
                EXPECT_TRUE(passed.contains(name)) << name.toStdString();
            }
        }
        EXPECT_GE(reachable, 2);
        QTest::keyClick(&tabs, Qt::Key_Tab, Qt::ControlModifier);
    }
    QTest::keyClick(dialog.get(), Qt::Key_F1);
    EXPECT_EQ(helped, 1);
}

/// The size is the given one, or larger where the font needs more room; no text is cut then.
TEST_F(Options, HoldsItsTextsInAnyFont) {
    const QFont before = QApplication::font();
    for (const int points : {7, 10, 16}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        Open();
        EXPECT_EQ(dialog->minimumSize(), dialog->maximumSize());
        EXPECT_GE(dialog->width(), 402);
        EXPECT_GE(dialog->height(), 333);
        auto& tabs = Find<QTabWidget>("SSTab1");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.setCurrentIndex(tab);
            for (const QWidget* control : dialog->findChildren<QWidget*>()) {
                const bool hasText =
                    control->inherits("QAbstractButton") || control->inherits("QLabel");
                // The narrow button is made to its text.
                if (control->isVisible() && hasText && control->objectName() != u"BrowseFolCmd") {
                    EXPECT_EQ(control->size().expandedTo(control->minimumSizeHint()),
                              control->size())
                        << control->objectName().toStdString();
                }
            }
        }
    }
    QApplication::setFont(before);
}

} // namespace
} // namespace netrove

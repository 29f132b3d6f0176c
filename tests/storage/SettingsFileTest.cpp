#include "storage/SettingsFile.h"

#include "fakes/DesktopFakes.h"
#include "fakes/UnusualSettings.h"
#include "platform/TempTree.h"
#include "runtime/ExpectRaised.h"
#include "runtime/Text.h"

#include <QFile>
#include <QMainWindow>
#include <QTest>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// One run of a program with a window, between its start and its end.
class Session {
public:
    explicit Session(const TempTree& tree)
        : file_({window, search, recurse, results, downloads},
                {.settings = settings, .system = system_, .applicationFolder = tree.Path()},
                tree.Path(Text("a.ini"))) {
        window.resize(730, 461); // 11010 by 6975 twips with its frame
        results.setGeometry(0, 0, 676, 300);
        search.setEditable(true);
        for (int column = 1; column <= 12; ++column)
            results.AddColumn(Text("column"), Qt::AlignLeft, 1000);
        for (int column = 1; column <= 9; ++column)
            downloads.AddColumn(Text("column"), Qt::AlignLeft, 1000);
        results.HideColumn(9);
        results.HideColumn(10);
    }

    void Load() { file_.LoadIni(); }
    void Save() { file_.SaveIni(); }

    [[nodiscard]] QStringList Items() const {
        QStringList items;
        for (int item = 0; item < search.count(); ++item)
            items += search.itemText(item);
        return items;
    }

    Settings settings;
    QMainWindow window;
    QComboBox search{&window};
    QCheckBox recurse{&window};
    ListView results{&window};
    ListView downloads{&window};

private:
    TestSystem system_;
    SettingsFile file_;
};

class SettingsFileTest : public testing::Test {
protected:
    [[nodiscard]] QString Content() const {
        QFile file(tree.Path(Text("a.ini")));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    [[nodiscard]] QString Stored(const char* section, const char* key) const {
        return ProfileFile(tree.Path(Text("a.ini"))).ReadIni(Text(section), Text(key), Text("-"));
    }

    TempTree tree;
};

TEST_F(SettingsFileTest, FirstExitWritesTheDefaultsInTheirOrder) {
    {
        Session run(tree);
        run.Load();
        EXPECT_TRUE(run.window.isVisible());
        EXPECT_EQ(run.search.currentText(), Text("*.mp3"));
        EXPECT_EQ(run.settings.CurrentComputerName, Text("\\\\THISONE"));
        EXPECT_TRUE(QFileInfo(tree.Path(Text("Downloads"))).isDir());
        for (const char* item : {"*.mp3", " one "})
            run.search.addItem(Text(item));
        run.search.setEditText(Text(" *.mp3 "));
        run.Save();
    }
    const QString expected = Text(R"([Skin] Index=1
[Positions] Left=# Top=# Width=11010 Height=6975 Maximized=False
ResultsCol1Width=1500 ResultsCol2Width=1500 ResultsCol3Width=1140 ResultsCol4Width=1140
ResultsCol5Width=1140 ResultsCol6Width=1140 ResultsCol7Width=1140 ResultsCol8Width=1140
ResultsCol11Width=1140 ResultsCol12Width=1140
DownLoadsCol1Width=1500 DownLoadsCol2Width=1500 DownLoadsCol3Width=1140 DownLoadsCol4Width=1140
DownLoadsCol5Width=1140 DownLoadsCol6Width=1140
[Search~Items] Number=2 Current=*.mp3 0=*.mp3 1=one
[Recurse] State=1
[Save] Folder=%1/Downloads/
[Return~Files] Maximum=5000
[Downloads] Concurrent=5
[Colors] State=1
[Grids] State=0
[List] Font=Arial Font_Size=8.25 Font_Italic=False Font_Bold=False Font_CharSet=1
[Results_Options] SizeFormat=1 SizeNumDec=4 DateFormat=MM/DD/YY ShowListIcons=False
ListIconType=0 ShowFileTypes=False
[Search_Options] Auto_Asterisks=True Include_Virtual_Shares=False
Include_Current_Computer=False Include_MP3_Info=False Include_Admin_Shares=False
[Main] MinToTray=False Troubleshooting=0
[Switch_To_Dload_Tab] State=True
[Exclude_Network_Nodes] State=True Number=4 Node1=Windows|True|Folder Node2=WinNT|True|Folder
Node3=Temp|True|Folder Node4=Temporary~Internet~Files|True|Folder
)")
                                 .replace(u' ', u'\n')
                                 .replace(u'~', u' ')
                                 .replace(Text("\n"), Text("\r\n"))
                                 .arg(tree.Path());
    QString content = Content();
    content.replace(QRegularExpression(Text("(Left|Top)=\\d+")), Text("\\1=#"));
    EXPECT_EQ(content.toStdString(), expected.toStdString());

    tree.File("a.ini", "; mine\n[Exclude_Network_Nodes]\nNumber=1\nNode1=X\n[Foreign]\nk=v\n"
                       "[search items]\n0=old\n[Main]\nother=1\nMINTOTRAY=1\n");
    Session run(tree);
    run.Load();
    run.Save();
    EXPECT_TRUE(Content().startsWith(Text("; mine\r\n[Foreign]\r\nk=v\r\n[Main]\r\nother=1\r\n"
                                          "MinToTray=True\r\nTroubleshooting=0\r\n[Skin]\r\n")));
    EXPECT_TRUE(Content().contains(Text("[Search Items]\r\nNumber=1\r\nCurrent=*.mp3\r\n0=old\r\n"
                                        "[Recurse]")));
    EXPECT_TRUE(Content().endsWith(Text("[Exclude_Network_Nodes]\r\nState=True\r\nNumber=1\r\n"
                                        "Node1=X\r\n")));
}

/// The rows of the document's table: "section/key" and the default.
QMap<QString, QString> DocumentedSettings() {
    QFile file(QStringLiteral(SETTINGS_DOCUMENT));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QMap<QString, QString> rows;
    QString section;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QStringList cells = line.split(u'|');
        if (cells.size() < 7)
            continue;
        if (cells[1].contains(u'`'))
            section = cells[1].section(u'`', 1, 1);
        for (const QString& key : cells[2].split(Text(", ")))
            rows.insert(section + u'/' + key.section(u'`', 1, 1), cells[4].trimmed());
    }
    return rows;
}

TEST(SettingsTableTest, TheDocumentHasEachSettingWithItsDefault) {
    QMap<QString, QString> rows = DocumentedSettings();
    QStringList sections;
    for (const Setting& setting : SettingsTable()) {
        const QString path = Text(setting.section) + u'/' + Text(setting.key);
        const QString initial = Text(setting.initial);
        EXPECT_TRUE(rows.contains(path)) << path.toStdString();
        const QString told = rows.take(path);
        EXPECT_TRUE(initial.isEmpty() || told == initial) << path.toStdString();
        sections += Text(setting.section);
    }
    for (const QString& path : rows.keys()) // but for those of the list of excluded nodes
        EXPECT_TRUE(path.startsWith(Text("Exclude")) ||
                    !sections.contains(path.section(u'/', 0, 0)))
            << path.toStdString();
}

TEST(SettingsFileName, IsTheExecutablesWholeName) {
    EXPECT_EQ(IniFileName(Text("/a"), Text("/b/netrove-2.1")), Text("/a/netrove-2.1.ini"));
}

TEST_F(SettingsFileTest, TreatsStrangeValues) {
    struct Case {
        const char* section;
        const char* line;
        std::function<QString(const Session&)> value;
        const char* expected;
    };
    using Run = const Session&;
    const auto text = [](auto number) { return QString::number(number); };
    const auto maximum = [&](Run run) { return text(run.settings.MaxReturnFiles); };
    const auto concurrent = [&](Run run) { return text(run.settings.MaxConcurrentDownloads); };
    const auto decimals = [&](Run run) { return text(run.settings.SizeNumDec); };
    const auto fontSize = [&](Run run) { return text(run.downloads.font().pointSizeF()); };
    const auto heading = [](Run run) { return run.downloads.HeaderText(3); };
    const auto column = [&](Run run) -> QString {
        return text(run.results.ColumnWidth(1)) + u' ' + text(run.downloads.ColumnWidth(1));
    };
    const auto asterisks = [](Run run) { return BooleanWord(run.settings.AutoAsterisks); };
    const auto nodes = [](Run run) -> QString {
        return BooleanWord(run.settings.ExcludeNetNodes) + u' ' +
               run.settings.ExcNetNodes.join(u' ').remove(Text("|True|Folder"));
    };
    const auto items = [](Run run) { return run.Items().join(u' '); };
    const Case cases[] = {
        {"Return Files", "Maximum=abc", maximum, "0"},
        {"Return Files", "Maximum=-1", maximum, "5000"},
        {"Downloads", "Concurrent=-3", concurrent, "5"},
        {"Downloads", "Concurrent=0", concurrent, "0"},
        {"Results_Options", "SizeNumDec=11", decimals, "0"},
        {"Results_Options", "SizeNumDec=10", decimals, "10"},
        {"Results_Options", "SizeFormat=2", heading, "Size (KB)"},
        {"Results_Options", "SizeFormat=9", heading, "Size (MB)"},
        {"List", "Font_Size=100", fontSize, "8.25"},
        {"List", "Font_Size=72", fontSize, "72"},
        {"Positions", "ResultsCol1Width=1E30", column, "15728625 15728625"},
        {"Positions", "ResultsCol1Width=2999.9", column, "3000 3000"},
        {"Search_Options", "AUTO_ASTERISKS=0", asterisks, "False"},
        {"Exclude_Network_Nodes", "Number=6", nodes,
         "True Windows WinNT Temp Temporary Internet Files Windows WinNT"},
        {"Exclude_Network_Nodes", "State=True\nNumber=0\nNode1=X", nodes, "False "},
        {"Exclude_Network_Nodes", "Number=3\nNode1=X\nNode2= \nNode3=Y", nodes, "True X Y"},
        {"Search Items", "0=a\n1=\" b \"\n2=c", items, "a b"},
        {"Search Items", "Number=-7\n0=a\n1=b\n2=c", items, "a b"},
        {"Search Items",
         "Number=40\n0=0\n1=1\n2=2\n3=3\n4=4\n5=5\n7=7\n8=8\n9=9\n10=10\n11=11\n12=12\n13=13\n"
         "14=14\n15=15\n16=16",
         items, "0 1 2 3 4 5 7 8 9 10 11 12 13 14"},
    };
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    for (const Case& test : cases) {
        tree.File("a.ini", QByteArray("[") + test.section + "]\n" + test.line + '\n');
        Session run(tree);
        run.Load();
        EXPECT_EQ(test.value(run).toStdString(), test.expected) << test.section << test.line;
        // What was loaded is what a second run loads.
        run.Save();
        Session second(tree);
        second.Load();
        EXPECT_EQ(test.value(second).toStdString(), test.expected) << test.section << test.line;
    }
    QLocale::setDefault(before);
}

TEST_F(SettingsFileTest, StopsAtWhatIsNone) {
    const struct {
        ErrorNumber number;
        const char* section;
        const char* line;
        int decimals; ///< 2 where the options of the results are read before
    } cases[] = {
        {ErrorNumber::Overflow, "Downloads", "Concurrent=32768", 4},
        {ErrorNumber::Overflow, "Positions", "ResultsCol3Width=1E39", 4},
        {ErrorNumber::TypeMismatch, "Positions", "Maximized=maybe", 4},
        {ErrorNumber::TypeMismatch, "Main", "MinToTray=1x", 2},
        {ErrorNumber::Overflow, "Exclude_Network_Nodes", "Number=&H10000", 2},
    };
    for (const auto& [number, section, line, decimals] : cases) {
        tree.File("a.ini", QByteArray("[") + section + "]\n" + line +
                               "\n[Results_Options]\nSizeFormat=3\nSizeNumDec=2\n");
        Session run(tree);
        ExpectRaised(
            number, [&] { run.Load(); }, Text(line));
        EXPECT_TRUE(run.settings.ExcNetNodes.isEmpty()) << line;
        EXPECT_EQ(run.settings.SizeNumDec, decimals) << line;
    }
}

TEST_F(SettingsFileTest, EverySettingSurvives) {
    const auto describe = [](const Session& run) {
        const QFont font = run.downloads.font();
        QStringList texts{run.search.currentText(), run.Items().join(u','),
                          run.results.HeaderText(3), font.family()};
        for (const ListView* list : {&run.results, &run.downloads})
            texts << list->BackColor().name() << BooleanWord(list->GridLines())
                  << QString::number(list->ColumnWidth(1));
        for (const bool flag : {run.recurse.isChecked(), font.italic(), font.bold()})
            texts += BooleanWord(flag);
        return Described(run.settings) + texts.join(u'\n').toStdString();
    };
    tree.Folder("Müsik");
    std::string expected;
    {
        Session run(tree);
        run.Load();
        run.settings = UnusualSettings(tree.Path(Text("Müsik/")));
        run.settings.SkinIndex = 3;
        run.settings.ExcNetNodes = Texts({"Ä b|False|Workstation", "\\x|True|Folder"});
        run.recurse.setChecked(false);
        run.search.addItems({Text("\u00A0x\u00A0"), Text("a;b=[c]"), Text("日本語")});
        run.search.setEditText(Text("; no comment"));
        run.results.SetColumnWidth(1, 3000);
        run.downloads.SetColumnWidth(1, 750);
        QFont font = run.results.font();
        font.setFamily(Text("Serif"));
        font.setItalic(true);
        font.setBold(true);
        run.results.setFont(font);
        run.Save();
        // What follows from these at a start.
        run.downloads.SetColumnWidth(1, 3000);
        run.downloads.setFont(font);
        for (ListView* list : {&run.results, &run.downloads}) {
            list->SetBackColor(Qt::white);
            list->SetGridLines(true);
            list->SetHeaderText(3, Text("Size (KB)"));
        }
        expected = describe(run);
    }
    Session run(tree);
    run.Load();
    EXPECT_EQ(describe(run), expected);

    run.search.setEditText(Text("  "));
    run.settings.DateFormat.clear();
    run.settings.ExcNetNodes.clear();
    run.Save();
    Session cleared(tree);
    cleared.Load();
    EXPECT_EQ(cleared.search.currentText(), Text("*.mp3"));
    EXPECT_EQ(cleared.settings.DateFormat, Text("MM/DD/YY"));
    EXPECT_FALSE(cleared.settings.ExcludeNetNodes);
    EXPECT_TRUE(cleared.settings.ExcNetNodes.isEmpty());
}

TEST_F(SettingsFileTest, FallsBackFromAFolderThatIsGone) {
    const QString own = tree.Path(Text("Downloads/"));
    const auto loaded = [this](const QString& folder) {
        tree.File("a.ini", "[Save]\nFolder=" + folder.toUtf8());
        Session run(tree);
        run.Load();
        return run.settings.SaveFolder;
    };
    EXPECT_EQ(loaded(tree.Path(Text("gone/"))), own);
    EXPECT_EQ(loaded(Text("~/")), QDir::homePath() + u'/');
    EXPECT_EQ(loaded(Text(".")), own) << "would be another one after each start";
    QDir().rmdir(own);
    tree.File("Downloads", "in the way");
    EXPECT_EQ(loaded(tree.Path(Text("gone/"))), tree.Path());
}

TEST_F(SettingsFileTest, KeepsTheNormalPlaceOfAWindowThatIsNotNormal) {
    tree.File("a.ini", "[Positions]\nLeft=150\nTop=300\nWidth=6000\nHeight=4500\n");
    const auto positions = [this] {
        QStringList values;
        for (const char* key : {"Left", "Top", "Width", "Height", "Maximized"})
            values += Stored("Positions", key);
        return values.join(u' ');
    };
    {
        Session run(tree);
        run.Load();
        run.window.showMinimized();
        run.Save();
        EXPECT_EQ(positions(), Text("150 300 6000 4500 False"));
        run.window.showMaximized();
        run.Save();
        EXPECT_EQ(positions(), Text("150 300 6000 4500 True"));
    }
    Session run(tree);
    run.Load();
    EXPECT_TRUE(run.window.isMaximized());
    run.window.showNormal();
    QCoreApplication::processEvents();
    run.window.move(run.window.pos() + QPoint(10, 10));
    run.window.hide();
    run.Save();
    EXPECT_EQ(positions(), Text("300 450 6000 4500 False"));
}

} // namespace
} // namespace netrove

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

/// The keys of the document's table as "section/key", and its defaults.
QStringList DocumentedSettings(QMap<QString, QString>& defaults) {
    QFile document(QStringLiteral(SETTINGS_DOCUMENT));
    EXPECT_TRUE(document.open(QIODevice::ReadOnly));
    QString section;
    QStringList told;
    for (const QString& line : QString::fromUtf8(document.readAll()).split(u'\n')) {
        const QStringList cells = line.split(u'|');
        if (cells.size() < 7 || !cells[2].contains(u'`'))
            continue;
        if (cells[1].contains(u'`'))
            section = cells[1].section(u'`', 1, 1) + u'/';
        for (const QString& key : cells[2].split(Text(", "))) {
            told += section + key.section(u'`', 1, 1);
            defaults[told.last()] = cells[4].trimmed();
        }
    }
    return told;
}

/// The document's table has each key in the order of a new file, with its default.
TEST_F(SettingsFileTest, FirstExitWritesWhatTheDocumentTells) {
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
    QString section;
    QStringList written;
    for (const QString& line : Content().split(Text("\r\n"), Qt::SkipEmptyParts)) {
        if (line.startsWith(u'['))
            section = line.sliced(1).chopped(1) + u'/';
        else
            written += section + line.section(u'=', 0, 0);
    }
    QMap<QString, QString> defaults;
    QStringList told = DocumentedSettings(defaults);
    told.removeIf([](const QString& path) {
        return path.startsWith(Text("SkinProperties")) || path.startsWith(Text("Web/"));
    });
    const QRegularExpression unnumbered(Text("/(?!\\d|Node|ResultsCol|DownLoadsCol|$)"));
    for (QStringList* paths : {&written, &told})
        *paths = paths->filter(unnumbered);
    EXPECT_EQ(written.join(u'\n').toStdString(), told.join(u'\n').toStdString());
    for (const Setting& setting : SettingsTable()) {
        const QString path = Text(setting.section) + u'/' + Text(setting.key);
        const QString initial = Text(setting.initial);
        EXPECT_TRUE(told.contains(path)) << path.toStdString();
        EXPECT_TRUE(initial.isEmpty() ||
                    (defaults[path] == initial && Stored(setting.section, setting.key) == initial))
            << path.toStdString();
    }
    for (const char* part :
         {"Width=11010 Height=6975 Maximized=False ResultsCol1Width=1500 ResultsCol2Width=1500 ",
          "ResultsCol8Width=1140 ResultsCol11Width=1140 ResultsCol12Width=1140 "
          "DownLoadsCol1Width=1500 ",
          "Number=2 Current=*.mp3 0=*.mp3 1=one ",
          "Number=4 Node1=Windows|True|Folder Node2=WinNT|"})
        EXPECT_TRUE(Content().replace(Text("\r\n"), Text(" ")).contains(Text(part))) << part;
}

TEST_F(SettingsFileTest, WhatIsntOursStays) {
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

TEST_F(SettingsFileTest, TreatsStrangeValues) {
    using Run = const Session&;
    const auto fontSize = [](Run run) {
        return QString::number(run.downloads.font().pointSizeF());
    };
    const auto heading = [](Run run) { return run.downloads.HeaderText(3); };
    const auto column = [](Run run) {
        return Text("%1 %2").arg(run.results.ColumnWidth(1)).arg(run.downloads.ColumnWidth(1));
    };
    const auto asterisks = [](Run run) { return BooleanWord(run.settings.AutoAsterisks); };
    const auto nodes = [](Run run) {
        return Text("%1 %2").arg(BooleanWord(run.settings.ExcludeNetNodes),
                                 run.settings.ExcNetNodes.join(u' ').remove(Text("|True|Folder")));
    };
    const auto items = [](Run run) { return run.Items().join(u' '); };
    const struct {
        const char* section;
        const char* line;
        const char* expected;
        std::function<QString(Run)> value = {}; ///< none: of the setting
    } cases[] = {
        {"Return Files", "Maximum=abc", "0"},
        {"Return Files", "Maximum=-1", "5000"},
        {"Downloads", "Concurrent=-3", "5"},
        {"Results_Options", "SizeNumDec=11", "0"},
        {"Results_Options", "SizeFormat=9", "Size (MB)", heading},
        {"List", "Font_Size=100", "8.25", fontSize},
        {"Positions", "ResultsCol1Width=1E30", "15728625 15728625", column},
        {"Search_Options", "AUTO_ASTERISKS=0", "False", asterisks},
        {"Exclude_Network_Nodes", "Number=6",
         "True Windows WinNT Temp Temporary Internet Files Windows WinNT", nodes},
        {"Exclude_Network_Nodes", "State=True\nNumber=0\nNode1=X", "False ", nodes},
        {"Exclude_Network_Nodes", "Number=3\nNode1=X\nNode2= \nNode3=Y", "True X Y", nodes},
        {"Search Items", "Number=-7\n0=a\n1=\" b \"\n2=c", "a b", items},
        {"Search Items",
         "Number=40\n0=0\n5=5\n7=7\n8=8\n9=9\n10=10\n11=11\n12=12\n13=13\n14=14\n15=15\n16=16",
         "0 5 7 8 9 10 11 12 13 14", items},
    };
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    for (const auto& [section, line, expected, value] : cases) {
        SCOPED_TRACE(line);
        tree.File("a.ini", QByteArray("[") + section + "]\n" + line + '\n');
        // What was loaded is what a second run loads.
        for (int start = 0; start < 2; ++start) {
            Session run(tree);
            run.Load();
            const QByteArray key = QByteArray(line).split('=')[0];
            const QString loaded =
                value ? value(run) : TextOf(SettingOf(section, key.constData()), run.settings);
            EXPECT_EQ(loaded.toStdString(), expected) << start;
            run.Save();
        }
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
    tree.Folder("Müsik");
    Session first(tree);
    first.Load();
    first.settings = UnusualSettings(tree.Path(Text("Müsik/")));
    first.settings.ExcNetNodes = Texts({"Ä b|False|Workstation", "\\x|True|Folder"});
    first.recurse.setChecked(false);
    first.search.addItems({Text("\u00A0x\u00A0"), Text("a;b=[c]"), Text("日本語")});
    first.search.setEditText(Text("; no comment"));
    first.results.SetColumnWidth(1, 3000);
    first.downloads.SetColumnWidth(1, 750);
    QFont font = first.results.font();
    font.setFamily(Text("Serif"));
    font.setBold(true);
    first.results.setFont(font);
    first.Save();

    Session run(tree);
    run.Load();
    EXPECT_EQ(Described(run.settings), Described(first.settings));
    EXPECT_EQ(run.search.currentText(), first.search.currentText());
    EXPECT_EQ(run.Items(), first.Items());
    EXPECT_FALSE(run.recurse.isChecked());
    for (const ListView* list : {&run.results, &run.downloads}) {
        EXPECT_EQ(list->ColumnWidth(1), 3000);
        EXPECT_EQ(list->HeaderText(3), Text("Size (KB)"));
        EXPECT_TRUE(list->GridLines() && list->BackColor() == QColor(Qt::white));
        EXPECT_TRUE(list->font().bold() && !list->font().italic());
        EXPECT_EQ(list->font().family(), Text("Serif"));
    }

    run.search.setEditText(Text("  "));
    run.settings.DateFormat.clear();
    run.settings.ExcNetNodes.clear();
    run.Save();
    Session cleared(tree);
    cleared.Load();
    EXPECT_EQ(cleared.search.currentText(), Text("*.mp3"));
    EXPECT_EQ(cleared.settings.DateFormat, Text("MM/DD/YY"));
    EXPECT_FALSE(cleared.settings.ExcludeNetNodes);
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

} // namespace
} // namespace netrove

#include "mainwindow/windowservices/IconImages.h"

#include "fakes/Text.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

/// A desktop that knows text files by number 7 and songs by number 12.
class TwoTypes : public FileTypes {
public:
    ShellFileInfo Info(const QString& path) override {
        asked.append(path);
        if (path.endsWith(Text(".txt")))
            return {.iconIndex = 7, .typeName = Text("  Text ") + QChar(u'\0') + Text("rest")};
        if (path.endsWith(Text(".mp3")))
            return {.iconIndex = 12, .typeName = Text(" Song ")};
        return {.iconIndex = -1, .typeName = {}};
    }

    QStringList asked;
};

class FileIcons : public testing::Test {
protected:
    void SetUp() override {
        list.AddColumn(Text("File Name"), Qt::AlignLeft, 1500);
        for (ImageList* images : {&preLg, &preSm, &sysLg, &sysSm})
            images->Add(Text("<NONE>"), QIcon());
    }

    IconItem Add(const char* name, bool showFileTypes, bool showListIcons, qint32 listIconType) {
        return icons.AddIconItem(list, picIconSm, sysSm, Text("\\\\S\\D\\") + Text(name),
                                 Text(name), showFileTypes, showListIcons, listIconType);
    }

    QString KeyOf(const char* name, qint32 listIconType) {
        return list.SmallIcon(Add(name, false, true, listIconType).row);
    }

    static QIcon Draw(int size) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::red);
        return {pixmap};
    }

    ListView list;
    ImageList preLg{32}, preSm{16}, sysLg{32}, sysSm{16};
    QWidget window;
    QWidget picIconLg{&window}, picIconSm{&window};
    const IconSets sets{preLg, preSm, sysLg, sysSm, picIconLg, picIconSm};
    TwoTypes types;
    std::vector<int> drawn;
    IconImages icons{types, [this](int iconIndex) {
                         drawn.push_back(iconIndex);
                         return Draw(48);
                     }};
};

TEST_F(FileIcons, PredefinedSetGoesByExtension) {
    const std::pair<const char*, const char*> cases[] = {
        {"a", "<NONE>"},      {"a.", "<NONE>"},    {"a.jpeg", "GIF"}, {"a.JPG", "GIF"},
        {"a.b.7z", "ZIP"},    {"a.Log", "TXT"},    {"a.mp1", "MP3"},  {"a.rm", "AVI"},
        {"a.ra", "MP3"},      {"a.cab", "CAB"},    {"a.csv", "CSV"},  {"a.exe", "EXE"},
        {"a.rby", "RBY"},     {"a.tif", "<NONE>"}, {".txt", "TXT"},   {"a.bz2", "ZIP"},
        {"a.mp3 ", "<NONE>"}, {"GIF", "<NONE>"},
    };
    for (const auto& [name, key] : cases)
        EXPECT_EQ(KeyOf(name, PredefinedIconType).toStdString(), key) << name;
    EXPECT_TRUE(types.asked.isEmpty());
    EXPECT_EQ(sysSm.Count(), 1);
}

TEST_F(FileIcons, SettingsDecideWhatIsAskedAndShown) {
    struct {
        bool showFileTypes, showListIcons;
        qint32 listIconType;
        const char* typeName;
        const char* key;
        int asked;
    } const cases[] = {
        {false, false, 0, "", "", 0},      {false, false, 1, "", "", 0},
        {true, false, 0, "Song", "", 1},   {true, false, 1, "Song", "", 1},
        {false, true, 0, "", "MP3", 0},    {false, true, 1, "", "K12", 1},
        {true, true, 0, "Song", "MP3", 1}, {true, true, 1, "Song", "K12", 1},
    };
    int row = 0;
    for (const auto& c : cases) {
        types.asked.clear();
        const IconItem item = Add("x.mp3", c.showFileTypes, c.showListIcons, c.listIconType);
        EXPECT_EQ(item.row, ++row);
        EXPECT_EQ(list.Text(item.row), Text("x.mp3"));
        EXPECT_EQ(item.extension, Text("MP3"));
        EXPECT_EQ(item.typeName.toStdString(), c.typeName) << row;
        EXPECT_EQ(list.SmallIcon(item.row).toStdString(), c.key) << row;
        EXPECT_EQ(types.asked.size(), c.asked) << row;
    }
    EXPECT_EQ(types.asked.constFirst(), Text("\\\\S\\D\\x.mp3"));
    EXPECT_EQ(Add("x.txt", true, false, 0).typeName, Text("Text"));
}

TEST_F(FileIcons, SystemSetCopiesEachIconOnce) {
    IconImages::BindIcons(list, sets, true, SystemIconType);
    EXPECT_EQ(KeyOf("a.mp3", SystemIconType), Text("K12"));
    EXPECT_EQ(KeyOf("b.mp3", SystemIconType), Text("K12"));
    EXPECT_EQ(KeyOf("c.txt", SystemIconType), Text("K7"));
    EXPECT_EQ(KeyOf("d.xyz", SystemIconType), Text("K0")) << "unknown to the desktop";
    EXPECT_EQ(KeyOf("e", SystemIconType), Text("K0"));
    EXPECT_EQ(drawn, (std::vector<int>{12, 7, -1}));
    EXPECT_EQ(sysSm.Count(), 4);
    EXPECT_EQ(sysSm.Key(2), Text("K12"));
    EXPECT_EQ(sysSm.Picture(2).actualSize(QSize(64, 64)), QSize(16, 16));
    EXPECT_FALSE(IconImages::ImageKeyMissing(sysSm, 7));
    EXPECT_TRUE(IconImages::ImageKeyMissing(sysSm, 1));
}

TEST_F(FileIcons, SettingsBindTheList) {
    window.show();
    IconImages::BindIcons(list, sets, true, PredefinedIconType);
    EXPECT_EQ(list.Icons(), &preLg);
    EXPECT_EQ(list.SmallIcons(), &preSm);
    EXPECT_TRUE(picIconSm.isVisible()) << "left alone";
    IconImages::BindIcons(list, sets, true, SystemIconType);
    EXPECT_EQ(list.Icons(), &sysLg);
    EXPECT_EQ(list.SmallIcons(), &sysSm);
    EXPECT_EQ(picIconLg.geometry(), QRect(0, 0, 32, 32));
    EXPECT_EQ(picIconSm.geometry(), QRect(0, 0, 16, 16));
    EXPECT_FALSE(picIconLg.isVisible() || picIconSm.isVisible());
    IconImages::BindIcons(list, sets, false, SystemIconType);
    EXPECT_EQ(list.Icons(), nullptr);
    EXPECT_EQ(list.SmallIcons(), nullptr);
}

} // namespace
} // namespace netrove

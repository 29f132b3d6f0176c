#include "fakes/Text.h"
#include "windowservices/IconImages.h"
#include "windowservices/PredefinedIcons.h"

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
                         return iconIndex == 12 ? Draw(48) : QIcon();
                     }};
};

TEST_F(FileIcons, SettingsDecideWhatIsAskedAndShown) {
    struct {
        bool showFileTypes, showListIcons;
        qint32 listIconType;
        const char* typeName;
        const char* key;
        int asked;
    } const cases[] = {
        {false, false, 1, "", "", 0},      {true, false, 1, "Song", "", 1},
        {false, true, 0, "", "MP3", 0},    {false, true, 1, "", "K12", 1},
        {true, true, 1, "Song", "K12", 1},
    };
    for (const auto& c : cases) {
        types.asked.clear();
        const IconItem item = Add("x.mp3", c.showFileTypes, c.showListIcons, c.listIconType);
        EXPECT_EQ(list.Text(item.row) + item.extension, Text("x.mp3MP3"));
        EXPECT_EQ(item.typeName.toStdString(), c.typeName) << item.row;
        EXPECT_EQ(list.SmallIcon(item.row).toStdString(), c.key) << item.row;
        EXPECT_EQ(types.asked, QStringList(c.asked, Text("\\\\S\\D\\x.mp3"))) << item.row;
    }
    EXPECT_EQ(Add("x.txt", true, false, 0).typeName, Text("Text"));
}

TEST_F(FileIcons, SystemSetCopiesEachIconOnce) {
    IconImages::BindIcons(list, sets, true, SystemIconType);
    for (const auto& [name, key] : TextPairs{
             {"a.mp3", "K12"}, {"b.mp3", "K12"}, {"c.txt", "K7"}, {"u.xyz", "K0"}, {"e", "K0"}})
        EXPECT_EQ(KeyOf(name, SystemIconType), Text(key)) << name;
    EXPECT_EQ(drawn, (std::vector<int>{12, 7, -1}));
    EXPECT_EQ(sysSm.Count(), 4);
    EXPECT_EQ(sysSm.Picture(2).actualSize(QSize(64, 64)), QSize(16, 16));
    const auto picture = [](const QIcon& icon) { return icon.pixmap(16, 16).toImage(); };
    EXPECT_EQ(picture(sysSm.Picture(Text("K12"))), picture(Draw(16)));
    EXPECT_EQ(picture(sysSm.Picture(Text("K7"))), picture(PredefinedIcon(Text("TXT"))));
    EXPECT_EQ(picture(sysSm.Picture(Text("K0"))), picture(PredefinedIcon(Text("<NONE>"))));
}

} // namespace
} // namespace netrove

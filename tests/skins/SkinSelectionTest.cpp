#include "skins/SkinStage.h"

namespace netrove {
namespace {

class SkinSelectionTest : public SkinStage {
protected:
    SkinSelectionTest() { skins.MakeModifier(); }
};

TEST_F(SkinSelectionTest, MenuChoosesTheSkin) {
    const struct {
        qint16 index;
        const char* name; ///< empty: no skin
        bool canAdjust;
    } cases[] = {{0, "", false},        {1, "Trek", true},       {2, "Serenity", true},
                 {2, "Serenity", true}, {4, "Metropolis", true}, {5, "Bullethead", true},
                 {0, "", false},        {6, "", true},           {-1, "", true}};
    for (const auto& c : cases) {
        frames.calls.clear();
        const auto before = skins.SkinConfiguration();
        window.setCursor(Qt::WaitCursor);
        skins.mnuSkin_Click(c.index);
        for (int item = 0; item <= 5; ++item)
            EXPECT_EQ(items.mnuSkin[size_t(item)]->isChecked(), item == c.index) << c.index;
        EXPECT_EQ(items.mnuSkinCust->isEnabled(), c.canAdjust) << c.index;
        EXPECT_EQ(SkinIndex, c.index);
        EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
        const auto skin = skins.SkinConfiguration();
        const QString name = Text(c.name);
        if (name.isEmpty()) {
            EXPECT_FALSE(skin);
            EXPECT_EQ(frames.calls, Texts({"detach", "resize"})) << c.index;
            continue;
        }
        ASSERT_TRUE(skin);
        EXPECT_NE(skin, before) << "made anew, for the same skin too";
        EXPECT_EQ(frames.attached, skin.get());
        EXPECT_EQ(skin->TitleFont, window.font());
        EXPECT_EQ(frames.calls, (QStringList{Text("attach main ") + name, Text("resize")}));
    }
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(SkinSelectionTest, StoredChoice) {
    EXPECT_EQ(skins.StoredIndex(), 1) << "of a first start";
    const std::pair<const char*, int> cases[] = {{"0", 0},     {"5", 5},          {"6", 0},
                                                 {"-1", 0},    {" 3x", 3},        {"abc", 0},
                                                 {"40000", 0}, {"2147483648", 0}, {"1E999", 0}};
    for (const auto& [text, index] : cases) {
        Store("Skin", "Index", text);
        EXPECT_EQ(skins.StoredIndex(), index) << text;
    }
}

TEST_F(SkinSelectionTest, EachSkinKeepsItsAdjustments) {
    Store("SkinProperties_2", {{"Name", "Whatever"},
                               {"Colorize", "1"},
                               {"Hue", " 3.25 and more"},
                               {"Saturation", "much"},
                               {"AdjustRGB", "false"},
                               {"PercentBlue", "1e99"}});
    Store("SkinProperties_3", "Own", "kept");
    skins.mnuSkin_Click(2);
    const auto skin = skins.SkinConfiguration();
    EXPECT_EQ(skin->Name, Text("Serenity"));
    EXPECT_TRUE(skin->Colorize);
    EXPECT_EQ(skin->Hue, 3.25F);
    EXPECT_EQ(skin->Saturation, 0);
    EXPECT_FALSE(skin->AdjustRGB);
    EXPECT_EQ(skin->PercentBlue, 0) << "too large for a number, and no failure";
    skin->Saturation = 0.01F;
    skin->PercentGreen = -1;
    skins.SaveSkinXML();
    QStringList written;
    for (const char* key : {"Name", "Colorize", "Hue", "Saturation", "AdjustRGB", "PercentRed",
                            "PercentGreen", "PercentBlue"})
        written.append(Stored("SkinProperties_2", key));
    EXPECT_EQ(written.join(u' '), Text("Serenity True 3.25 0.01 False 0 -1 0"));

    skins.mnuSkin_Click(1);
    EXPECT_EQ(skins.SkinConfiguration()->PercentGreen, 0) << "no group of its own yet";
    skins.mnuSkin_Click(0);
    skins.SaveSkinXML();
    EXPECT_EQ(Stored("SkinProperties_1", "Name"), Text("-")) << "nothing is written on the way";
    skins.mnuSkin_Click(2);
    EXPECT_EQ(skins.SkinConfiguration()->PercentGreen, -1);
    EXPECT_EQ(Stored("SkinProperties_3", "Own"), Text("kept"));
    EXPECT_EQ(dialogs.Boxes(), "");
}

TEST_F(SkinSelectionTest, FailuresEndInABoxAndTheChoiceStays) {
    skins.mnuSkin_Click(1);
    const SkinConfiguration* before = frames.attached;
    Store("SkinProperties_4",
          {{"Saturation", "0.5"}, {"AdjustRGB", "perhaps"}, {"PercentRed", "0.5"}});
    frames.calls.clear();
    skins.mnuSkin_Click(4);
    EXPECT_EQ(dialogs.WholeBoxes(), "critical: Error in Skinning: 13\r\nType mismatch");
    EXPECT_TRUE(frames.calls.isEmpty()) << "neither attached nor laid out";
    EXPECT_EQ(frames.attached, before);
    EXPECT_EQ(frames.attached->Name, Text("Trek")) << "lives on while the window shows it";
    EXPECT_EQ(SkinIndex, 4);
    EXPECT_EQ(skins.SkinConfiguration()->Saturation, 0.5F);
    EXPECT_EQ(skins.SkinConfiguration()->PercentRed, 0) << "behind the one that failed";
    EXPECT_TRUE(items.mnuSkin[4]->isChecked());

    frames.attachFails = true;
    skins.mnuSkin_Click(5);
    EXPECT_EQ(dialogs.Shown.last(), Text("Error in Skinning: 57\r\nDevice I/O error"));
    EXPECT_EQ(frames.calls, Texts({"attach main Bullethead"}));
    frames.detachFails = true;
    window.setCursor(Qt::WaitCursor);
    skins.mnuSkin_Click(0);
    EXPECT_EQ(dialogs.Shown.last(), Text("Error in Skin Menu: 57\r\nDevice I/O error"));
    EXPECT_EQ(frames.calls.last(), Text("detach"));
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(SkinIndex, 0);
    EXPECT_EQ(skins.SkinConfiguration()->Name, Text("Bullethead"));
}

TEST_F(SkinSelectionTest, ControlsHaveTheColoursOfTheirSkin) {
    const auto color = [](const QWidget* control, QPalette::ColorRole role) {
        return control->palette().color(role);
    };
    const QPalette desktop = QApplication::palette();
    window.show();
    skins.mnuSkin_Click(1);
    EXPECT_EQ(color(controls.buttons[4], QPalette::Button), QColor(255, 192, 128));
    EXPECT_EQ(color(controls.HyperLbl, QPalette::WindowText), QColor(128, 128, 255));
    EXPECT_EQ(color(controls.RecShp[3], QPalette::WindowText), QColor(255, 128, 0));
    EXPECT_EQ(color(controls.lines[6], QPalette::WindowText), QColor(192, 64, 0));

    QPalette dark = desktop;
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    dark.setColor(QPalette::WindowText, Qt::white);
    skins.mnuSkin_Click(0);
    for (const QPalette& palette : {dark, desktop}) { // while the program runs
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        for (const auto role : {QPalette::Window, QPalette::WindowText, QPalette::Button})
            EXPECT_EQ(color(controls.Label1, role), palette.color(role));
    }
}

} // namespace
} // namespace netrove

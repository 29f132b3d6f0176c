#include "fakes/Files.h"
#include "gui/WindowTest.h"
#include "skins/frmCustomizeSkin.h"

#include <QScrollBar>

namespace netrove {
namespace {

/// The window whose skin is chosen and adjusted by its menu.
class SkinTest : public WindowTest {
protected:
    void Store(const char* section, TextPairs entries) {
        for (const auto& [key, value] : entries)
            profile.WriteIni(Text(section), Text(key), Text(value));
    }
    QString Stored(const char* section, const char* key) {
        return profile.ReadIni(Text(section), Text(key), Text("-"));
    }
    /// The skins of the menu that are checked.
    std::string Checked() {
        std::string checked;
        for (const QAction* item : Find<QMenu>("mnuSkinTOP").actions()) {
            if (item->isChecked())
                checked += item->objectName().toStdString();
        }
        return checked;
    }
    /// Adjusts the skin in its dialog.
    void Customize(const std::function<void(frmCustomizeSkin&)>& use, const char* button) {
        InDialog<frmCustomizeSkin>("mnuSkinCust", [&](frmCustomizeSkin& dialog) {
            use(dialog);
            QTest::mouseClick(&FindIn(dialog, button), Qt::LeftButton);
        });
    }

    ProfileFile profile{IniFileName(folder.path())};
    SkinSelection& skins = window->Skins();
};

TEST_F(SkinTest, StoredChoice) {
    EXPECT_EQ(skins.StoredIndex(), 1) << "of a first start";
    const std::pair<const char*, int> cases[] = {{"0", 0},     {"5", 5},          {"6", 0},
                                                 {"-1", 0},    {" 3x", 3},        {"abc", 0},
                                                 {"40000", 0}, {"2147483648", 0}, {"1E999", 0}};
    for (const auto& [text, index] : cases) {
        Store("Skin", {{"Index", text}});
        EXPECT_EQ(skins.StoredIndex(), index) << text;
    }
}

TEST_F(SkinTest, SlidersWriteTheirMembersAndPaintTheSample) {
    Open();
    using Skin = SkinConfiguration;
    const struct {
        const char* label; ///< of the box, which it stands for
        const char* slider;
        float Skin::*member;
        int maximum;
        float first, last;
    } cases[] = {{"lblInfo(6)", "hscSaturation", &Skin::Saturation, 100, 0, 1},
                 {"", "hscHue", &Skin::Hue, 600, -1, 5},
                 {"lblInfo(5)", "hscRed", &Skin::PercentRed, 200, -1, 1},
                 {"", "hscGreen", &Skin::PercentGreen, 200, -1, 1},
                 {"", "hscBlue", &Skin::PercentBlue, 200, -1, 1}};
    const auto skin = skins.SkinConfiguration();
    const QPalette before = window->palette();
    const auto use = [&](frmCustomizeSkin& dialog) {
        const auto sample = [&] { return FindIn(dialog, "picSample").grab().toImage(); };
        for (const auto& c : cases) {
            SCOPED_TRACE(c.slider);
            auto& slider = FindIn<QScrollBar>(dialog, c.slider);
            EXPECT_NE(slider.isEnabled(), *c.label != '\0');
            if (*c.label != '\0')
                QTest::mouseClick(&FindIn(dialog, c.label), Qt::LeftButton);
            slider.setFocus();
            QTest::keyClick(&slider, Qt::Key_Home);
            EXPECT_EQ((*skin).*c.member, c.first);
            const QImage painted = sample();
            QTest::keyClick(&slider, Qt::Key_PageDown);
            QTest::keyClick(&slider, Qt::Key_Right);
            EXPECT_EQ(slider.value(), 11);
            EXPECT_EQ((*skin).*c.member, float(double(c.first) + 0.11));
            EXPECT_NE(sample(), painted);
            QTest::keyClick(&slider, Qt::Key_End);
            EXPECT_EQ(slider.value(), c.maximum);
            EXPECT_EQ((*skin).*c.member, c.last);
        }
        EXPECT_TRUE(skin->Colorize && skin->AdjustRGB);
        QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !skin->Colorize; })) << "by its mnemonic";
        QTest::mouseClick(&FindIn(dialog, "lblInfo(5)"), Qt::LeftButton);
        EXPECT_FALSE(FindIn(dialog, "hscHue").isEnabled() || FindIn(dialog, "hscRed").isEnabled());
        QTest::keyClick(&dialog, Qt::Key_F1);
        EXPECT_EQ(shell.Opened.size(), 1);
    };
    Customize(use, "cmdCancel");
    EXPECT_EQ(skin->Hue, 5) << "stays in the configuration";
    EXPECT_EQ(Stored("SkinProperties_1", "Hue"), Text("-"));
    EXPECT_EQ(window->palette(), before);
}

TEST_F(SkinTest, FailuresEndInABoxAndTheChoiceStays) {
    Store("SkinProperties_4",
          {{"Saturation", "0.5"}, {"AdjustRGB", "perhaps"}, {"PercentRed", "0.5"}});
    Open();
    Trigger("mnuSkin(4)");
    EXPECT_EQ(dialogs.WholeBoxes(), "critical: Error in Skinning: 13\r\nType mismatch");
    EXPECT_FALSE(window->contentsMargins().isNull()) << "the frame is still the first skin's";
    EXPECT_EQ(window->ProgramSettings().SkinIndex, 4);
    EXPECT_EQ(Checked(), "mnuSkin(4)");
    EXPECT_EQ(skins.SkinConfiguration()->Saturation, 0.5F);
    EXPECT_EQ(skins.SkinConfiguration()->PercentRed, 0) << "behind the one that failed";
}

TEST_F(SkinTest, AFileChangesTheSkinInForceOrNothing) {
    Open();
    const auto isOffered = [this] {
        auto& menu = Find<QMenu>("mnuSkinTOP");
        menu.popup({});
        menu.close();
        Activate();
        return Find<QAction>("mnuSkinFile").isVisible();
    };
    EXPECT_FALSE(isOffered());
    ASSERT_TRUE(QDir(folder.path()).mkpath(Text("Skins/Dark Metal")));
    const QString path = folder.filePath(Text("Skins/Dark Metal/skin.xml"));
    WriteFile(path, "<skin name='Dark'><member name='FrameMetric1' value='9'/></skin>");
    EXPECT_TRUE(isOffered());
    Trigger("mnuSkinFile");
    EXPECT_EQ(dialogs.Boxes(), "");
    WriteFile(path, "<skin name='Bad'>");
    Trigger("mnuSkinFile");
    EXPECT_TRUE(dialogs.Take().starts_with("Error in Skinning: "));
    QFile::remove(path);
    Trigger("mnuSkinFile");
    EXPECT_EQ(dialogs.Take(), "Netrove: Couldn't load " + path.toStdString());
    EXPECT_EQ(skins.SkinConfiguration()->Name, Text("Dark"));
    EXPECT_EQ(window->contentsMargins().left(), 9);
}

} // namespace
} // namespace netrove

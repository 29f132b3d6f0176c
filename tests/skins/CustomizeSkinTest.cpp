#include "skins/SkinStage.h"
#include "skins/frmCustomizeSkin.h"

#include <QTest>

namespace netrove {
namespace {

/// The dialog over a skin, used with keys and mouse.
class CustomizeSkin : public SkinStage {
protected:
    CustomizeSkin() {
        skins.MakeModifier();
        window.show();
    }

    void Open(qint16 index) {
        skins.mnuSkin_Click(index);
        dialog = std::make_unique<frmCustomizeSkin>(
            DialogLook{.skin = &skins, .openHelp = [this] { ++helped; }}, &window);
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }

    template <typename Widget = QWidget>
    Widget& Find(const char* name) {
        return FindIn<Widget>(*dialog, name);
    }

    std::unique_ptr<frmCustomizeSkin> dialog;
};

TEST_F(CustomizeSkin, OpensWithWhatIsStored) {
    const auto expectSliders = [this](const std::vector<int>& values, bool enabled) {
        std::vector<int> shown;
        for (const char* name : {"hscHue", "hscSaturation", "hscRed", "hscGreen", "hscBlue"}) {
            shown.push_back(Find<QScrollBar>(name).value());
            EXPECT_EQ(Find(name).isEnabled(), enabled) << name;
        }
        EXPECT_EQ(shown, values);
    };
    Open(2);
    EXPECT_TRUE(dialog->Cancelled());
    EXPECT_EQ(Find<QLabel>("lblInfo(8)").text(), Text("Skin Name: Serenity"));
    expectSliders({100, 0, 100, 100, 100}, false);

    Store("SkinProperties_3", {{"Colorize", "True"},
                               {"Hue", "-0.25"},
                               {"Saturation", "0.29"},
                               {"AdjustRGB", "True"},
                               {"PercentRed", "5000000"},
                               {"PercentGreen", "-7"},
                               {"PercentBlue", "-0.01"}});
    Open(3);
    expectSliders({75, 29, 200, 0, 99}, true);
    EXPECT_EQ(skins.SkinConfiguration()->PercentRed, 5000000) << "nothing is written by opening";
}

TEST_F(CustomizeSkin, SlidersWriteTheirMembersAndPaintTheSample) {
    Open(1);
    netrove::SkinConfiguration& skin = *skins.SkinConfiguration();
    struct Case {
        const char* box;
        const char* slider;
        float netrove::SkinConfiguration::*member;
        int maximum;
        float first, last;
    };
    using Skin = netrove::SkinConfiguration;
    const Case cases[] = {{"chkColourise", "hscHue", &Skin::Hue, 600, -1, 5},
                          {"chkColourise", "hscSaturation", &Skin::Saturation, 100, 0, 1},
                          {"chkAdjustRGB", "hscRed", &Skin::PercentRed, 200, -1, 1},
                          {"chkAdjustRGB", "hscGreen", &Skin::PercentGreen, 200, -1, 1},
                          {"chkAdjustRGB", "hscBlue", &Skin::PercentBlue, 200, -1, 1}};
    for (const Case& c : cases) {
        Find<QCheckBox>(c.box).setChecked(true);
        auto& slider = Find<QScrollBar>(c.slider);
        slider.setFocus();
        QTest::keyClick(&slider, Qt::Key_Home);
        EXPECT_EQ(skin.*c.member, c.first) << c.slider;
        QTest::keyClick(&slider, Qt::Key_PageDown);
        QTest::keyClick(&slider, Qt::Key_Right);
        EXPECT_EQ(slider.value(), 11) << c.slider;
        EXPECT_EQ(skin.*c.member, float(double(c.first) + 0.11)) << c.slider;
        painter.samples.clear();
        QTest::keyClick(&slider, Qt::Key_End);
        EXPECT_EQ(slider.value(), c.maximum);
        EXPECT_EQ(skin.*c.member, c.last) << c.slider;
        EXPECT_TRUE(QTest::qWaitFor([&] { return painter.samples.size() >= 2; })) << c.slider;
    }
    EXPECT_TRUE(skin.Colorize);
    EXPECT_TRUE(skin.AdjustRGB);
    const QSize sample = Find("picSample").size();
    const QString place = QStringLiteral("main Trek %1,%1 %2x%3 %4");
    EXPECT_EQ(
        painter.samples.mid(0, 2),
        (QStringList{place.arg(4).arg(sample.width() - 40).arg(sample.height() - 40).arg(0),
                     place.arg(32).arg(sample.width() - 30).arg(sample.height() - 40).arg(1)}));
}

TEST_F(CustomizeSkin, BoxesAndTheirLabelsSwitchTheSliders) {
    Open(4);
    netrove::SkinConfiguration& skin = *skins.SkinConfiguration();
    QTest::mouseClick(&Find("lblInfo(6)"), Qt::LeftButton);
    EXPECT_TRUE(skin.Colorize);
    EXPECT_TRUE(Find("hscHue").isEnabled() && Find("hscSaturation").isEnabled());
    EXPECT_FALSE(Find("hscRed").isEnabled());
    QTest::mouseClick(&Find("lblInfo(5)"), Qt::LeftButton);
    EXPECT_TRUE(skin.AdjustRGB && Find("hscBlue").isEnabled());
    QTest::mouseClick(&Find("lblInfo(5)"), Qt::LeftButton);
    EXPECT_FALSE(skin.AdjustRGB || Find("hscBlue").isEnabled());
    QTest::mouseClick(&Find("lblInfo(0)"), Qt::LeftButton);
    QTest::keyClick(dialog.get(), Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !skin.Colorize; })) << "by its mnemonic";
    QTest::keyClick(dialog.get(), Qt::Key_F1);
    EXPECT_EQ(helped, 1);
}

TEST_F(CustomizeSkin, CancelStoresNothing) {
    skins.mnuSkin_Click(5);
    const auto skin = skins.SkinConfiguration();
    frames.calls.clear();
    UseDialog<frmCustomizeSkin>([this] { skins.mnuSkinCust_Click(); },
                                [](frmCustomizeSkin& open) {
                                    FindIn<QCheckBox>(open, "chkColourise").setChecked(true);
                                    FindIn<QScrollBar>(open, "hscHue").setValue(350);
                                    QTest::mouseClick(&FindIn(open, "cmdCancel"), Qt::LeftButton);
                                });
    EXPECT_EQ(frames.calls, Texts({"attach frmCustomizeSkin Bullethead"}));
    EXPECT_EQ(Stored("SkinProperties_5", "Hue"), Text("-"));
    EXPECT_EQ(skin->Hue, 2.5F) << "stays in the configuration";
}

} // namespace
} // namespace netrove

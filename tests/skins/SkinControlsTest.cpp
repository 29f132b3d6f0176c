#include "skins/SkinControls.h"

#include "controls/Color.h"
#include "fakes/Find.h"
#include "skins/SkinFakes.h"
#include "skins/SkinTable.h"

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

#include <map>

namespace netrove {
namespace {

enum class Color { Desktop, Back, Fore, Button, Line, Border, Link };

/// A control of each kind in a window, with a tag or none.
class SkinControlsTest : public testing::Test {
protected:
    template <typename Widget>
    Widget& Add(const char* name, const char* tag = "") {
        auto* widget = new Widget(&window);
        widget->setObjectName(Text(name));
        widget->setProperty(TagProperty, Text(tag));
        return *widget;
    }
    void AddFrame(const char* name, QFrame::Shape shape, const char* tag = "") {
        Add<QFrame>(name, tag).setFrameStyle(int(shape) | QFrame::Sunken);
    }

    FrameLog log;
    QDialog window;
};

TEST_F(SkinControlsTest, TypeAndTagGiveTheColour) {
    Add<QLabel>("label");
    Add<QLabel>("link", "LINK");
    Add<QCheckBox>("lite", "LITE");
    Add<QLabel>("lower", "link");
    auto& kept = Add<QLabel>("kept", "NOCOLOR");
    kept.setAutoFillBackground(true);
    Add<QGroupBox>("frame");
    Add<QGroupBox>("fore", "FORE");
    Add<QPushButton>("button");
    Add<QRadioButton>("option");
    Add<QLineEdit>("text");
    Add<QLineEdit>("keptText", "NOCOLOR");
    Add<QPlainTextEdit>("lines");
    Add<QWidget>("picture");
    AddFrame("line", QFrame::HLine);
    AddFrame("shape", QFrame::Box);
    AddFrame("border", QFrame::Box, "BORDONLY");
    using enum Color;
    const struct {
        const char* control;
        QPalette::ColorRole role;
        Color skinned;
        Color plain;
    } cases[] = {
        {"label", QPalette::Window, Back, Desktop},
        {"label", QPalette::WindowText, Fore, Desktop},
        {"link", QPalette::Window, Back, Desktop},
        {"link", QPalette::WindowText, Link, Link},
        {"lite", QPalette::WindowText, Link, Link},
        {"lower", QPalette::WindowText, Fore, Desktop},
        {"kept", QPalette::Window, Desktop, Desktop},
        {"kept", QPalette::WindowText, Desktop, Desktop},
        {"frame", QPalette::Window, Back, Desktop},
        {"fore", QPalette::WindowText, Fore, Desktop},
        {"button", QPalette::Button, Button, Desktop},
        {"option", QPalette::Window, Back, Desktop},
        {"option", QPalette::WindowText, Fore, Desktop},
        {"text", QPalette::Base, Back, Back},
        {"text", QPalette::Text, Fore, Fore},
        {"keptText", QPalette::Base, Desktop, Desktop},
        {"lines", QPalette::Base, Back, Back},
        {"picture", QPalette::Window, Back, Back},
        {"line", QPalette::WindowText, Line, Line},
        {"shape", QPalette::WindowText, Border, Border},
        {"border", QPalette::WindowText, Border, Border},
    };
    for (const int index : {0, 1, 4}) {
        const SkinColors& skin = RoleColors(index);
        SkinControls(window, LoggedFrame(log), index, skin);
        const std::map<Color, QColor> colors{
            {Back, index == 0 ? window.palette().color(QPalette::Window) : log.back},
            {Fore, log.fore},
            {Button, ToColor(skin.SkinButtonColor)},
            {Line, ToColor(skin.SkinLineColor)},
            {Border, ToColor(skin.SkinForeColor)},
            {Link, ToColor(skin.SkinLinkColor)}};
        for (const auto& [control, role, skinned, plain] : cases) {
            const Color color = index == 0 ? plain : skinned;
            EXPECT_EQ(FindIn(window, control).palette().color(role),
                      color == Desktop ? QApplication::palette().color(role) : colors.at(color))
                << control << " under " << index;
        }
        const QPalette frame = FindIn(window, "frame").palette();
        const QPalette button = FindIn(window, "button").palette();
        EXPECT_GE(Contrast(frame.color(QPalette::Window), frame.color(QPalette::WindowText)), 4.5);
        EXPECT_GE(Contrast(button.color(QPalette::Button), button.color(QPalette::ButtonText)),
                  4.5);
    }
}

} // namespace
} // namespace netrove

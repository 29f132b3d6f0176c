#include "skins/SkinControls.h"

#include "controls/Color.h"
#include "fakes/Find.h"
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

/// A frame that gives two colours.
class TwoColors : public NCSizeModifier {
public:
    void Detach() override {}
    quint32 ResolvedBackColor() const override { return 0x1E140A; }
    quint32 ResolvedForeColor() const override { return 0xDCD2C8; }
    void Attach(QWidget& /*window*/, const SkinConfiguration& /*configuration*/) override {}
};

enum class Color { Desktop, Back, Fore, Button, Line, Border, Link };

TEST(SkinControlsTest, TypeAndTagGiveTheColour) {
    QDialog window;
    const auto add = [&](QWidget* widget, const char* name, const char* tag = "") {
        widget->setObjectName(Text(name));
        widget->setProperty(TagProperty, Text(tag));
        return widget;
    };
    const auto addFrame = [&](const char* name, QFrame::Shape shape, const char* tag = "") {
        auto* frame = new QFrame(&window);
        frame->setFrameStyle(int(shape) | QFrame::Sunken);
        add(frame, name, tag);
    };
    add(new QLabel(&window), "label");
    add(new QLabel(&window), "link", "LINK");
    add(new QCheckBox(&window), "lite", "LITE");
    add(new QLabel(&window), "lower", "link");
    add(new QLabel(&window), "kept", "NOCOLOR")->setAutoFillBackground(true);
    add(new QGroupBox(&window), "frame");
    add(new QGroupBox(&window), "fore", "FORE");
    add(new QPushButton(&window), "button");
    add(new QRadioButton(&window), "option");
    add(new QLineEdit(&window), "text");
    add(new QLineEdit(&window), "keptText", "NOCOLOR");
    add(new QPlainTextEdit(&window), "lines");
    add(new QWidget(&window), "picture");
    addFrame("line", QFrame::HLine);
    addFrame("shape", QFrame::Box);
    addFrame("border", QFrame::Box, "BORDONLY");
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
        SkinControls(window, TwoColors(), index, skin);
        const std::map<Color, QColor> colors{
            {Back, index == 0 ? window.palette().color(QPalette::Window) : QColor(10, 20, 30)},
            {Fore, QColor(200, 210, 220)},
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
    }
}

} // namespace
} // namespace netrove

#include "skins/SkinControls.h"

#include "controls/Color.h"
#include "fakes/Text.h"
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
    const auto frame = [&](QFrame::Shape shape) {
        auto* made = new QFrame(&window);
        made->setFrameStyle(int(shape) | QFrame::Sunken);
        return made;
    };
    using enum Color;
    const struct {
        QWidget* control;
        const char* tag;
        QPalette::ColorRole role;
        Color skinned;
        Color plain;
    } cases[] = {
        {new QLabel(&window), "", QPalette::Window, Back, Desktop},
        {new QLabel(&window), "", QPalette::WindowText, Fore, Desktop},
        {new QLabel(&window), "LINK", QPalette::Window, Back, Desktop},
        {new QLabel(&window), "LINK", QPalette::WindowText, Link, Link},
        {new QCheckBox(&window), "LITE", QPalette::WindowText, Link, Link},
        {new QLabel(&window), "link", QPalette::WindowText, Fore, Desktop},
        {new QLabel(&window), "NOCOLOR", QPalette::Window, Desktop, Desktop},
        {new QLabel(&window), "NOCOLOR", QPalette::WindowText, Desktop, Desktop},
        {new QGroupBox(&window), "", QPalette::Window, Back, Desktop},
        {new QGroupBox(&window), "FORE", QPalette::WindowText, Fore, Desktop},
        {new QPushButton(&window), "", QPalette::Button, Button, Desktop},
        {new QRadioButton(&window), "", QPalette::Window, Back, Desktop},
        {new QRadioButton(&window), "", QPalette::WindowText, Fore, Desktop},
        {new QLineEdit(&window), "", QPalette::Base, Back, Back},
        {new QLineEdit(&window), "", QPalette::Text, Fore, Fore},
        {new QLineEdit(&window), "NOCOLOR", QPalette::Base, Desktop, Desktop},
        {new QPlainTextEdit(&window), "", QPalette::Base, Back, Back},
        {new QWidget(&window), "", QPalette::Window, Back, Back},
        {frame(QFrame::HLine), "", QPalette::WindowText, Line, Line},
        {frame(QFrame::Box), "", QPalette::WindowText, Border, Border},
        {frame(QFrame::Box), "BORDONLY", QPalette::WindowText, Border, Border},
    };
    for (const auto& c : cases) {
        c.control->setObjectName(Text("named"));
        c.control->setProperty(TagProperty, Text(c.tag));
        c.control->setAutoFillBackground(Text(c.tag) == Text("NOCOLOR"));
    }
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
        for (const auto& [control, tag, role, skinned, plain] : cases) {
            const Color color = index == 0 ? plain : skinned;
            EXPECT_EQ(control->palette().color(role),
                      color == Desktop ? QApplication::palette().color(role) : colors.at(color))
                << control->metaObject()->className() << tag << role << " under " << index;
        }
    }
}

} // namespace
} // namespace netrove

#include "skins/SkinControls.h"

#include "controls/Color.h"
#include "controls/ListView.h"
#include "fakes/Text.h"
#include "skins/SkinFakes.h"
#include "skins/SkinTable.h"

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <gtest/gtest.h>

namespace netrove {
namespace {

enum class Color { Desktop, Back, Fore, Button, Line, Border, Link };

/// A control of each kind in a window, with a tag or none.
class SkinControlsTest : public testing::Test {
protected:
    template <typename Widget>
    Widget& Add(const char* name, const char* tag = "", QWidget* parent = nullptr) {
        auto* widget = new Widget(parent ? parent : &window);
        widget->setObjectName(Text(name));
        widget->setProperty(TagProperty, Text(tag));
        return *widget;
    }
    void AddFrame(const char* name, QFrame::Shape shape, const char* tag = "") {
        Add<QFrame>(name, tag).setFrameStyle(int(shape) | QFrame::Sunken);
    }

    void Apply(int index) { SkinControls(window, LoggedFrame(log), index, RoleColors(index)); }

    QColor Expected(Color color, QPalette::ColorRole role, int index) {
        const SkinColors& colors = RoleColors(index);
        switch (color) {
        case Color::Desktop:
            break;
        case Color::Back:
            return index == 0 ? window.palette().color(QPalette::Window) : log.back;
        case Color::Fore:
            return log.fore;
        case Color::Button:
            return ToColor(colors.SkinButtonColor);
        case Color::Line:
            return ToColor(colors.SkinLineColor);
        case Color::Border:
            return ToColor(colors.SkinForeColor);
        case Color::Link:
            return ToColor(colors.SkinLinkColor);
        }
        return QApplication::palette().color(role);
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
    struct Case {
        const char* control;
        QPalette::ColorRole role;
        Color skinned;
        Color plain;
    };
    const Case cases[] = {
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
    for (const int index : {0, 1, 2, 3, 4, 5}) {
        Apply(index);
        for (const Case& c : cases) {
            EXPECT_EQ(window.findChild<QWidget*>(Text(c.control))->palette().color(c.role),
                      Expected(index == 0 ? c.plain : c.skinned, c.role, index))
                << c.control << " under " << index;
        }
        const QPalette frame = window.findChild<QWidget*>(Text("frame"))->palette();
        const QPalette button = window.findChild<QWidget*>(Text("button"))->palette();
        EXPECT_GE(Contrast(frame.color(QPalette::Window), frame.color(QPalette::WindowText)), 4.5);
        EXPECT_GE(Contrast(button.color(QPalette::Button), button.color(QPalette::ButtonText)),
                  4.5);
    }
}

TEST_F(SkinControlsTest, OthersKeepTheDesktopsPairs) {
    auto& tabs = Add<QTabWidget>("tabs");
    auto* page = new QWidget;
    tabs.addTab(page, Text("Page"));
    auto& list = Add<ListView>("list", "", page);
    auto& combo = Add<QComboBox>("combo", "", page);
    combo.setEditable(true);
    auto& spin = Add<QSpinBox>("spin", "", page);
    auto& menu = Add<QMenu>("menu");
    auto& inner = Add<QDialog>("inner");
    auto& innerLabel = Add<QLabel>("innerLabel", "", &inner);
    Apply(1);
    const QPalette desktop = QApplication::palette();
    const std::pair<QPalette::ColorRole, std::vector<const QWidget*>> kept[] = {
        {QPalette::Base, {&list, &combo, combo.lineEdit(), combo.view(), &spin, &menu}},
        {QPalette::Text, {&list, &combo, combo.lineEdit(), combo.view(), &spin, &menu}},
        {QPalette::Button, {list.horizontalHeader(), &combo, &spin, &menu}},
        {QPalette::ButtonText, {list.horizontalHeader(), &combo, &spin, &menu}},
        {QPalette::Window, {&menu, &inner, &innerLabel}},
        {QPalette::WindowText, {&menu, &inner, &innerLabel}}};
    for (const auto& [role, widgets] : kept) {
        for (const QWidget* widget : widgets)
            EXPECT_EQ(widget->palette().color(role), desktop.color(role))
                << widget->objectName().toStdString() << " role " << int(role);
    }
    EXPECT_EQ(tabs.tabBar()->palette().color(QPalette::Button), log.back);
    EXPECT_EQ(tabs.tabBar()->palette().color(QPalette::WindowText), log.fore);
}

} // namespace
} // namespace netrove

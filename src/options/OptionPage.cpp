#include "options/OptionPage.h"

#include "runtime/SourceText.h"
#include "skins/SkinControls.h"

#include <QButtonGroup>
#include <QGuiApplication>
#include <QHBoxLayout>

namespace netrove {
namespace {

QWidget& AddTab(QTabWidget& tabs, const char* caption) {
    auto* page = new QWidget(&tabs);
    // The page's controls fill their background with the window's colour, so the page does too.
    page->setAutoFillBackground(true);
    tabs.addTab(page, Text(caption));
    return *page;
}

QWidget& AddFrame(OptionPage& page, const char* name, const char* caption) {
    auto* frame = Named(new QGroupBox(Text(caption), &page.Widget()), Text(name));
    page.AddRow(*frame);
    return *frame;
}

QGridLayout& MakeGrid(QWidget& widget) {
    auto* grid = new QGridLayout(&widget);
    grid->setColumnStretch(0, 1);
    return *grid;
}

/// Without a group, buttons of one parent would exclude each other across all questions.
void Group(QWidget& parent, std::initializer_list<QRadioButton*> options) {
    auto* group = new QButtonGroup(&parent);
    for (QRadioButton* option : options)
        group->addButton(option);
}

} // namespace

OptionPage::OptionPage(QTabWidget& tabs, const char* caption)
    : widget_(AddTab(tabs, caption)), grid_(MakeGrid(widget_)) {}

OptionPage::OptionPage(OptionPage& page, const char* name, const char* caption)
    : widget_(AddFrame(page, name, caption)), grid_(MakeGrid(widget_)) {}

/// A label for the control or question named `of`.
QLabel* OptionPage::NewLabel(const char* text, const QString& of) {
    return Named(new QLabel(Text(text), &widget_), u"lbl" + of);
}

YesNoOptions OptionPage::AddYesNo(const char* question, const char* name) {
    const int row = NextRow();
    grid_.addWidget(NewLabel(question, Text(name)), row, 0);
    const YesNoOptions options{Named(new QRadioButton(u"Yes"_s, &widget_), u"optYes" + Text(name)),
                               Named(new QRadioButton(u"No"_s, &widget_), u"optNo" + Text(name))};
    Group(widget_, {options.Yes, options.No});
    int column = 1;
    for (QRadioButton* option : {options.Yes, options.No}) {
        option->setAccessibleName(Text(question) + u' ' + option->text());
        grid_.addWidget(option, row, column++);
    }
    return options;
}

void OptionPage::AddOptions(const char* label, std::initializer_list<QRadioButton*> options) {
    auto* buttons = new QHBoxLayout;
    if (*label)
        buttons->addWidget(NewLabel(label, (*options.begin())->objectName()));
    buttons->addStretch();
    for (QRadioButton* option : options)
        buttons->addWidget(option);
    Group(widget_, options);
    grid_.addLayout(buttons, NextRow(), 0, 1, -1);
}

void OptionPage::AddField(const char* label, QWidget& control) {
    const int row = NextRow();
    QLabel* caption = NewLabel(label, control.objectName());
    caption->setBuddy(&control);
    grid_.addWidget(caption, row, 0);
    grid_.addWidget(&control, row, 1, 1, 2);
}

void OptionPage::AddWideField(const char* label, QWidget& control, QWidget* button) {
    auto* fields = new QHBoxLayout;
    QLabel* caption = NewLabel(label, control.objectName());
    caption->setBuddy(&control);
    fields->addWidget(caption);
    fields->addWidget(&control, 1);
    if (button)
        fields->addWidget(button);
    grid_.addLayout(fields, NextRow(), 0, 1, -1);
}

void OptionPage::AddAtLeft(QWidget& control) {
    grid_.addWidget(&control, NextRow(), 0, 1, -1, Qt::AlignLeft);
}

void OptionPage::AddAtRight(QWidget& control) {
    grid_.addWidget(&control, NextRow(), 0, 1, -1, Qt::AlignRight);
}

void OptionPage::AddPair(QWidget& first, QWidget& second) {
    auto* pair = new QHBoxLayout;
    pair->addWidget(&first);
    pair->addWidget(&second, 1);
    grid_.addLayout(pair, NextRow(), 0, 1, -1);
}

void OptionPage::AddRow(QWidget& control, bool fills) {
    const int row = NextRow();
    grid_.addWidget(&control, row, 0, 1, -1);
    grid_.setRowStretch(row, fills ? 1 : 0);
}

void OptionPage::WidenFields() {
    grid_.setColumnStretch(0, 0);
    grid_.setColumnStretch(1, 1);
}

void OptionPage::AddStretch() {
    grid_.setRowStretch(NextRow(), 1);
}

void OptionPage::KeepColors() const {
    widget_.setProperty(TagProperty, u"NOCOLOR"_s);
    widget_.setPalette(QGuiApplication::palette());
    widget_.setAutoFillBackground(true);
}

QRadioButton* MakeOption(QWidget& parent, const char* name, const char* caption,
                         const char* toolTip) {
    return Named(new QRadioButton(Text(caption), &parent), Text(name), toolTip);
}

QPushButton* MakeBrowseButton(QWidget& parent, const char* name, const char* toolTip) {
    auto* button = NamedButton(parent, Text(name), u"&..."_s, toolTip);
    button->setAccessibleName(button->toolTip());
    button->setFixedWidth(button->sizeHint().height() * 3 / 2);
    return button;
}

QLineEdit* MakeLine(QWidget& parent, const char* name, const char* toolTip) {
    return Named(new QLineEdit(&parent), Text(name), toolTip);
}

} // namespace netrove

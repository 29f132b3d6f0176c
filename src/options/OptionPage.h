#pragma once

#include "controls/NamedControls.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QWidget>

#include <initializer_list>
#include <vector>

namespace netrove {

/// The two answers of a question.
struct YesNoOptions {
    QRadioButton* Yes = nullptr;
    QRadioButton* No = nullptr;

    [[nodiscard]] bool IsYes() const { return Yes->isChecked(); }
    void Set(bool yes) const { (yes ? Yes : No)->setChecked(true); }
};

/// Puts the rows of an option page below each other: labels on the left, their controls on the
/// right. A control is the buddy of its label, which names it to assistive tools.
class OptionPage {
public:
    /// A page at the end of the tabs.
    OptionPage(QTabWidget& tabs, const char* caption);
    /// A frame with a caption, as the next row of a page.
    OptionPage(OptionPage& page, const char* name, const char* caption);

    [[nodiscard]] QWidget& Widget() const { return widget_; }

    /// A question with the options "optYes" and "optNo", each followed by `name`.
    YesNoOptions AddYesNo(const char* question, const char* name);
    /// Options of which the user chooses one.
    void AddOptions(const char* label, std::initializer_list<QRadioButton*> options);
    void AddField(const char* label, QWidget& control);
    /// A control that takes all the room after its label, except for a button at the right edge.
    void AddWideField(const char* label, QWidget& control, QWidget* button = nullptr);
    void AddAtLeft(QWidget& control);
    void AddAtRight(QWidget& control);
    /// Two controls that share a row, the second one filling it.
    void AddPair(QWidget& first, QWidget& second);
    /// A control that has a row to itself; with `fills` it gets the remaining height.
    void AddRow(QWidget& control, bool fills = false);
    /// Gives the remaining width to the fields, not to the labels.
    void WidenFields();
    /// Leaves the rest of the height free.
    void AddStretch();

    /// Makes a frame keep the desktop's colours, whatever the skin.
    void KeepColors() const;

private:
    [[nodiscard]] int NextRow() { return row_++; }
    [[nodiscard]] QLabel* NewLabel(const char* text, const QString& of);

    QWidget& widget_;
    QGridLayout& grid_;
    int row_ = 0;
};

/// An option button, tool tip included.
[[nodiscard]] QRadioButton* MakeOption(QWidget& parent, const char* name, const char* caption,
                                       const char* toolTip = "");
/// A narrow button "...", which assistive tools know by its tool tip.
[[nodiscard]] QPushButton* MakeBrowseButton(QWidget& parent, const char* name, const char* toolTip);
[[nodiscard]] QLineEdit* MakeLine(QWidget& parent, const char* name, const char* toolTip = "");

} // namespace netrove

#pragma once

#include <QLabel>
#include <QPushButton>
#include <QString>

#include <cstddef>

namespace netrove {

/// Gives a control its name, which becomes its object name.
template <typename Control>
Control* Named(Control* control, const QString& name, const char* toolTip = "") {
    control->setObjectName(name);
    control->setToolTip(QString::fromUtf8(toolTip));
    return control;
}

[[nodiscard]] QPushButton* NamedButton(QWidget& parent, const QString& name, const QString& caption,
                                       const char* toolTip = "");

/// A label that shows its text as it is, never as markup: names and texts come from outside.
[[nodiscard]] QLabel* NamedLabel(QWidget& parent, const QString& name, const QString& text);

/// The name of an element of an array of controls: "mnuSkin(3)" and so on.
[[nodiscard]] QString ElementName(const char* name, std::size_t index);

} // namespace netrove

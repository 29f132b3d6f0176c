#include "mainwindow/DefaultButton.h"

#include "controls/ListView.h"

namespace netrove {

DefaultButton::DefaultButton(QWidget& window, QPushButton& cmdStartSearch,
                             const std::vector<const ListView*>& lists)
    : window_(window), cmdStartSearch_(cmdStartSearch) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(QKeySequence(key), &window_);
        connect(shortcut, &QShortcut::activated, this, &DefaultButton::Press);
        keys_.push_back(shortcut);
    }
    cmdStartSearch_.setDefault(true);
    for (const ListView* list : lists) {
        connect(list, &ListView::GotFocus, this, [this] { SetDefault(false); });
        connect(list, &ListView::LostFocus, this, [this] { SetDefault(true); });
    }
}

void DefaultButton::Press() {
    auto* button = qobject_cast<QPushButton*>(window_.focusWidget());
    if (!button || !button->isEnabled())
        button = &cmdStartSearch_;
    button->click();
}

void DefaultButton::SetDefault(bool isDefault) {
    cmdStartSearch_.setDefault(isDefault);
    for (QShortcut* key : keys_)
        key->setEnabled(isDefault);
}

} // namespace netrove

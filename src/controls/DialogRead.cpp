#include "controls/DialogRead.h"

#include "runtime/Yield.h"

#include <QWindow>

#include <utility>

namespace netrove {

DialogRead::DialogRead(QDialog& dialog, QAbstractButton& cancel)
    : previous_(std::exchange(current_, this)), dialog_(dialog), closers_{&cancel} {
    if (auto* closeBox = dialog.findChild<QAbstractButton*>(CloseBoxName))
        closers_.push_back(closeBox);
}

DialogRead::~DialogRead() {
    static_cast<void>(WhileWaiting());
    current_ = previous_;
}

bool DialogRead::IsOf(const QObject& window) const {
    return dialog_.windowHandle() == &window;
}

} // namespace netrove

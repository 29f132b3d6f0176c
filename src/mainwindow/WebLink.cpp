#include "mainwindow/WebLink.h"

#include "runtime/SourceText.h"

#include <QMouseEvent>

#include <utility>

namespace netrove {

WebLink::WebLink(QLabel& HyperLbl, ShellServices& shell, Dialogs& dialogs, QString webAddress)
    : HyperLbl_(HyperLbl), shell_(shell), dialogs_(dialogs), webAddress_(std::move(webAddress)) {
    HyperLbl_.installEventFilter(this);
}

bool WebLink::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        HyperLbl_MouseDown();
    return QObject::eventFilter(watched, event);
}

void WebLink::HyperLbl_MouseDown() {
    dialogs_.Trap(u"Error in Hyperlink"_s, [this] {
        QPalette palette = HyperLbl_.palette();
        palette.setColor(QPalette::WindowText, Qt::red);
        HyperLbl_.setPalette(palette);
        shell_.ShellRun(webAddress_);
        HyperLbl_.window()->unsetCursor();
    });
}

} // namespace netrove

#include "mainwindow/WebLink.h"

#include <QMouseEvent>

#include <utility>

namespace netrove {

WebLink::WebLink(QWidget& window, QLabel& HyperLbl, Services services)
    : window_(window), HyperLbl_(HyperLbl), services_(std::move(services)) {
    HyperLbl_.installEventFilter(this);
}

bool WebLink::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        HyperLbl_MouseDown();
    return QObject::eventFilter(watched, event);
}

void WebLink::HyperLbl_MouseDown() {
    services_.dialogs.Trap(QStringLiteral("Error in Hyperlink"), [this] {
        QPalette palette = HyperLbl_.palette();
        palette.setColor(QPalette::WindowText, Qt::red);
        HyperLbl_.setPalette(palette);
        services_.shell.ShellRun(services_.webAddress);
        window_.unsetCursor();
    });
}

} // namespace netrove

#include "mainwindow/WebLink.h"

#include "runtime/RunTimeError.h"

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
    try {
        QPalette palette = HyperLbl_.palette();
        palette.setColor(QPalette::WindowText, Qt::red);
        HyperLbl_.setPalette(palette);
        services_.shell.ShellRun(services_.webAddress);
        window_.unsetCursor();
    } catch (...) {
        const RunTimeError error = CurrentFailure();
        services_.dialogs.Failure(error.Number(), error.Description(),
                                  QStringLiteral("Error in Hyperlink"));
    }
}

} // namespace netrove

#pragma once

#include <QApplication>

namespace netrove {

/// The application object of a program with windows. A failure that escapes from an event handler
/// ends here, with a line in the log: further out are the event loops of Qt and GLib, which an
/// exception can't pass through without breaking them.
class DesktopApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace netrove

#pragma once

#include "platform/Keyring.h"

#include <QObject>
#include <QThread>

namespace netrove {

/// The keyring of the desktop: that of GNOME and whatever else speaks the secret service, or
/// KDE's wallet. Its entries lie there under "netrove". One at most in a program.
///
/// It has a thread of its own, because its libraries want an event loop, and go on while the window
/// waits. Answers come on that thread.
class DesktopKeyring : public Keyring {
public:
    DesktopKeyring();
    ~DesktopKeyring() override;

    [[nodiscard]] bool IsThere() const override;
    void Read(const QString& entry, ReadDone done) override;
    void Write(const QString& entry, const Secret& value, WriteDone done) override;

private:
    QThread* thread_;
    QObject* inThread_; ///< what work for the thread is sent to
};

} // namespace netrove

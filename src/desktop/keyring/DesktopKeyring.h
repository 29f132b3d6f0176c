#pragma once

#include "platform/Keyring.h"

#include <QObject>
#include <QThread>

namespace netrove {

/// The keyring of the desktop: GNOME's or any other with the Secret Service interface, or KDE's
/// wallet. The entries are kept there under "netrove". At most one object in a program.
///
/// It has a thread of its own, because its libraries need an event loop that goes on while the
/// window waits. Answers come on that thread.
class DesktopKeyring : public Keyring {
public:
    DesktopKeyring();
    ~DesktopKeyring() override;

    [[nodiscard]] bool IsThere() const override;
    void Read(const QString& entry, ReadDone done) override;
    void Write(const QString& entry, const Secret& value, WriteDone done) override;

private:
    QThread* thread_;
    QObject* inThread_; ///< the receiver of work for the thread
};

} // namespace netrove

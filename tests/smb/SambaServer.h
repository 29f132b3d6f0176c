#pragma once

#include "platform/TempTree.h"
#include "redirector/SmbHost.h"

#include <QProcess>

namespace netrove {

/// A Samba server of its own on 127.0.0.1, at a free port, with everything it needs in a temporary
/// folder. It lets in guests, and is ended by the destructor.
///
/// Its shares: PUBLIC (a comment with letters beyond ASCII), REFUSED (nobody may enter), PRINTER,
/// HIDDEN$, and two that aren't listed: UNLISTED and PRIVATE, which only the accounts "daemon" and
/// "games" may enter. They show the subfolders "public", "hidden" and "unlisted" of its folder.
class SambaServer {
public:
    /// Whether a server can be started here: Samba is installed, and the user is root, whom smbd
    /// needs to be to take on its guests' identity.
    [[nodiscard]] static bool IsAvailable();

    /// The helper of this build: tests aren't where netrove-smb is looked for.
    [[nodiscard]] static QString Helper();

    /// Starts the server and waits until it answers; IsRunning() tells whether it does. `options`
    /// are further lines of the global section of its configuration.
    explicit SambaServer(const QString& options = QString());
    ~SambaServer() { Stop(); }

    [[nodiscard]] bool IsRunning() const { return process_.state() != QProcess::NotRunning; }
    [[nodiscard]] quint16 Port() const { return port_; }
    [[nodiscard]] SmbHost Host(const QString& name = QStringLiteral("FILER")) const;

    /// The local path of something below the folder of the shares. A file's folders are made, and
    /// it can be read by guests.
    [[nodiscard]] QString Path(const QString& relative) const { return tree_.Path(relative); }
    void AddFile(const QString& relative, const QByteArray& content = QByteArray()) {
        tree_.File(relative.toUtf8(), content);
    }

    /// Gives an account of the system a password at this server, or another one.
    [[nodiscard]] bool AddUser(const QString& name, const QString& password);
    /// What it has logged so far: a line for each time that somebody was to be let in.
    [[nodiscard]] QByteArray Log() const { return tree_.Content("state/log"); }

    /// Starts it once more, at the same port, after Stop(). Until then it refuses connections.
    [[nodiscard]] bool Start();
    void Stop();

private:
    void WriteConfiguration(const QString& options);

    TempTree tree_;
    quint16 port_ = 0;
    QProcess process_;
    const QString configuration_ = Path(QStringLiteral("state/smb.conf"));
};

} // namespace netrove

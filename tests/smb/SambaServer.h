#pragma once

#include "redirector/SmbHost.h"

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace netrove {

/// A Samba server of its own on 127.0.0.1, at a free port, with everything it needs in a temporary
/// folder. It lets in guests, and is ended by the destructor.
///
/// Its shares: PUBLIC (a comment with letters beyond ASCII), REFUSED (nobody may enter), PRINTER,
/// HIDDEN$, UNLISTED (not browseable) and JUNCTIONS (a DFS root). PUBLIC, HIDDEN$, UNLISTED and
/// JUNCTIONS are subfolders of its folder with the names "public", "hidden", "unlisted",
/// "junctions".
class SambaServer {
public:
    static constexpr char16_t PublicComment[] = u"Ordner f\u00fcr alle \u2014 \u97f3\u697d";

    /// Whether a server can be started here: Samba is installed, and the user is root, whom smbd
    /// needs to be to take on its guests' identity.
    [[nodiscard]] static bool IsAvailable();

    /// Options for a share PRIVATE, which the accounts "daemon" and "games" are let into; the log
    /// has a line for each time that somebody was to be let in.
    [[nodiscard]] static QString PrivateShare();

    /// The helper of this build: tests aren't where netrove-smb is looked for.
    [[nodiscard]] static QString Helper();

    /// Starts the server and waits until it answers; IsRunning() tells whether it does. `options`
    /// are further lines of the global section of its configuration, and further shares behind
    /// them; %ROOT% stands for the folder of the shares.
    explicit SambaServer(const QString& options = QString());
    SambaServer(const SambaServer&) = delete;
    SambaServer& operator=(const SambaServer&) = delete;
    ~SambaServer();

    [[nodiscard]] bool IsRunning() const { return process_.state() != QProcess::NotRunning; }
    [[nodiscard]] quint16 Port() const { return port_; }
    [[nodiscard]] SmbHost Host(const QString& name = QStringLiteral("FILER")) const;

    /// The local path of something below the folder of the shares. A file's folders are made, and
    /// it can be read by guests.
    [[nodiscard]] QString Path(const QString& relative) const;
    void AddFolder(const QString& relative);
    void AddFile(const QString& relative, const QByteArray& content = QByteArray());

    /// Gives an account of the system a password at this server, or another one.
    [[nodiscard]] bool AddUser(const QString& name, const QString& password);
    /// What it has logged so far.
    [[nodiscard]] QByteArray Log() const;

    /// Starts it once more, at the same port, after Stop(). Until then it refuses connections.
    [[nodiscard]] bool Start();
    void Stop();

private:
    [[nodiscard]] bool WriteConfiguration(const QString& options);
    [[nodiscard]] bool StartProcess();
    [[nodiscard]] bool WaitUntilItAnswers();
    [[nodiscard]] QString StateFile(const char* name) const;

    QTemporaryDir folder_;
    quint16 port_ = 0;
    QProcess process_;
};

} // namespace netrove

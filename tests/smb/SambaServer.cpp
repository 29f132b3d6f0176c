#include "smb/SambaServer.h"

#include "redirector/SmbProbe.h"
#include "smb/ListeningPort.h"

#include <QDeadlineTimer>
#include <QFileInfo>

#include <csignal>

#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

constexpr char Smbd[] = "/usr/sbin/smbd";

/// Behind what all servers of the tests have.
constexpr char Configuration[] = R"(
    map to guest = bad user
    store dos attributes = no
    map readonly = yes
    map archive = yes
    map system = yes
    map hidden = yes
%OPTIONS%
[PUBLIC]
    path = %ROOT%/public
    comment = Ordner für alle — 音楽
    guest ok = yes
[REFUSED]
    path = %ROOT%/public
    valid users = nobody-at-all
[PRINTER]
    path = %STATE%
    printable = yes
    guest ok = yes
[HIDDEN$]
    path = %ROOT%/hidden
    guest ok = yes
[UNLISTED]
    path = %ROOT%/unlisted
    browseable = no
    guest ok = yes
[PRIVATE]
    path = %ROOT%/public
    browseable = no
    valid users = daemon games
)";

} // namespace

bool SambaServer::IsAvailable() {
    return geteuid() == 0 && QFileInfo(QString::fromLatin1(Smbd)).isExecutable();
}

QString SambaServer::Helper() {
    return QStringLiteral(NETROVE_SMB);
}

SambaServer::SambaServer(const QString& options) : port_(ListeningPort().Port()) {
    // Guests must get through to the shares.
    chmod(tree_.Bytes("").constData(), 0755);
    for (const char* name : {"public", "hidden", "unlisted"})
        tree_.Folder(name);
    WriteConfiguration(options);
    if (!IsAvailable() || !Start())
        Stop();
}

void SambaServer::WriteConfiguration(const QString& options) {
    QFile common(QStringLiteral(NETROVE_SMB_CONF));
    if (!common.open(QIODevice::ReadOnly))
        qFatal("The common configuration is missing.");
    QString text = QString::fromUtf8(common.readAll() + Configuration);
    for (const auto& [name, value] : {std::pair("%OPTIONS%", options),
                                      {"%NAME%", QStringLiteral("FILER")},
                                      {"%WORKGROUP%", QStringLiteral("WORKGROUP")},
                                      {"%INTERFACES%", QStringLiteral("lo")},
                                      {"%PORT%", QString::number(port_)},
                                      {"%NO_NETBIOS%", QStringLiteral("yes")},
                                      {"%STATE%", Path(QStringLiteral("state"))},
                                      {"%ROOT%", Path({})}})
        text.replace(QLatin1String(name), value);
    AddFile(QStringLiteral("state/smb.conf"), text.toUtf8());
}

bool SambaServer::Start() {
    // A group of its own, so that what serves the connections can be ended with it; and it doesn't
    // outlive a test that is killed.
    process_.setChildProcessModifier([] {
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
    process_.setStandardInputFile(QProcess::nullDevice());
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.start(QString::fromLatin1(Smbd),
                   {QStringLiteral("--foreground"), QStringLiteral("--no-process-group"),
                    QLatin1String("--configfile=") + configuration_});
    const QDeadlineTimer limit(20000);
    for (bool runs = process_.waitForStarted(); runs && !limit.hasExpired();
         runs = !process_.waitForFinished(20)) {
        if (SmbProbe(SmbLimits()).Run({QStringLiteral("127.0.0.1")}, port_) == 0)
            return true;
    }
    return false;
}

bool SambaServer::AddUser(const QString& name, const QString& password) {
    QProcess program;
    program.start(
        QStringLiteral("/usr/bin/smbpasswd"),
        {QStringLiteral("-c"), configuration_, QStringLiteral("-a"), QStringLiteral("-s"), name});
    program.write((password + u'\n' + password + u'\n').toUtf8());
    program.closeWriteChannel();
    return program.waitForFinished() && program.exitCode() == 0;
}

void SambaServer::Stop() {
    if (!IsRunning())
        return;
    kill(-static_cast<pid_t>(process_.processId()), SIGKILL);
    process_.waitForFinished();
    // The server has started one more, in a session of its own, if it was asked for its shares.
    const pid_t shares = tree_.Content("state/samba-dcerpcd.pid").trimmed().toInt();
    if (shares > 1)
        kill(-shares, SIGKILL);
}

SmbHost SambaServer::Host(const QString& name) const {
    return {.name = name,
            .workgroup = QStringLiteral("WORKGROUP"),
            .address = QStringLiteral("127.0.0.1"),
            .port = port_};
}

} // namespace netrove

#include "smb/SambaServer.h"

#include "redirector/SmbProbe.h"
#include "smb/ListeningPort.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <filesystem>
#include <system_error>

#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

constexpr char Smbd[] = "/usr/sbin/smbd";

constexpr char Configuration[] = R"([global]
    workgroup = WORKGROUP
    netbios name = FILER
    server role = standalone server
    interfaces = lo
    bind interfaces only = yes
    smb ports = %PORT%
    disable netbios = yes
    security = user
    map to guest = bad user
    guest account = nobody
    load printers = no
    printing = bsd
    printcap name = /dev/null
    host msdfs = yes
    passdb backend = tdbsam:%STATE%/passdb.tdb
    private dir = %STATE%
    lock directory = %STATE%
    state directory = %STATE%
    cache directory = %STATE%
    pid directory = %STATE%
    ncalrpc dir = %STATE%/ncalrpc
    log file = %STATE%/log
    log level = 0
    server multi channel support = no
    store dos attributes = no
    map readonly = yes
    map archive = yes
    map system = yes
    map hidden = yes
    deadtime = 0
%OPTIONS%
[PUBLIC]
    path = %ROOT%/public
    comment = %COMMENT%
    guest ok = yes
[REFUSED]
    path = %ROOT%/public
    comment = Nobody may enter
    valid users = nobody-at-all
    guest ok = no
[PRINTER]
    path = %STATE%
    comment = Laser on the second floor
    printable = yes
    guest ok = yes
[HIDDEN$]
    path = %ROOT%/hidden
    guest ok = yes
[UNLISTED]
    path = %ROOT%/unlisted
    browseable = no
    guest ok = yes
[JUNCTIONS]
    path = %ROOT%/junctions
    msdfs root = yes
    guest ok = yes
)";

} // namespace

bool SambaServer::IsAvailable() {
    return geteuid() == 0 && QFileInfo(QString::fromLatin1(Smbd)).isExecutable();
}

QString SambaServer::Helper() {
    return QStringLiteral(NETROVE_SMB);
}

QString SambaServer::PrivateShare() {
    return QStringLiteral("    log level = 0 auth_audit:3\n"
                          "[PRIVATE]\n"
                          "    path = %ROOT%/public\n"
                          "    valid users = daemon games\n"
                          "    guest ok = no\n");
}

SambaServer::SambaServer(const QString& options) : port_(ListeningPort().Port()) {
    folder_.setAutoRemove(false);
    // Guests must get through to the shares.
    chmod(QFile::encodeName(folder_.path()).constData(), 0755);
    for (const char* name : {"public", "hidden", "unlisted", "junctions"})
        AddFolder(QString::fromLatin1(name));
    QDir(folder_.path()).mkpath(QStringLiteral("state"));
    if (!IsAvailable() || !WriteConfiguration(options) || !Start())
        Stop();
}

SambaServer::~SambaServer() {
    Stop();
    // Qt doesn't remove files whose names aren't valid UTF-8.
    std::error_code ignored;
    std::filesystem::remove_all(folder_.path().toStdString(), ignored);
}

bool SambaServer::WriteConfiguration(const QString& options) {
    QString text = QString::fromLatin1(Configuration);
    text.replace(QLatin1String("%OPTIONS%"), options);
    text.replace(QLatin1String("%PORT%"), QString::number(port_));
    text.replace(QLatin1String("%STATE%"), folder_.filePath(QStringLiteral("state")));
    text.replace(QLatin1String("%ROOT%"), folder_.path());
    text.replace(QLatin1String("%COMMENT%"), QString::fromUtf16(PublicComment));
    QFile file(StateFile("smb.conf"));
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0;
}

bool SambaServer::Start() {
    return StartProcess() && WaitUntilItAnswers();
}

bool SambaServer::StartProcess() {
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
                    QLatin1String("--configfile=") + StateFile("smb.conf")});
    return process_.waitForStarted();
}

bool SambaServer::WaitUntilItAnswers() {
    QDeadlineTimer limit(20000);
    while (!limit.hasExpired() && !process_.waitForFinished(20)) {
        if (SmbProbe(SmbLimits()).Run({QStringLiteral("127.0.0.1")}, port_) == 0)
            return true;
    }
    return false;
}

bool SambaServer::AddUser(const QString& name, const QString& password) {
    QProcess program;
    program.start(QStringLiteral("/usr/bin/smbpasswd"),
                  {QStringLiteral("-c"), StateFile("smb.conf"), QStringLiteral("-a"),
                   QStringLiteral("-s"), name});
    program.write((password + u'\n' + password + u'\n').toUtf8());
    program.closeWriteChannel();
    return program.waitForFinished() && program.exitCode() == 0;
}

QByteArray SambaServer::Log() const {
    QFile file(StateFile("log"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SambaServer::Stop() {
    if (!IsRunning())
        return;
    kill(-static_cast<pid_t>(process_.processId()), SIGKILL);
    process_.waitForFinished();
    // The server has started one more, in a session of its own, if it was asked for its shares.
    QFile file(StateFile("samba-dcerpcd.pid"));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const pid_t shares = file.readAll().trimmed().toInt();
    if (shares > 1)
        kill(-shares, SIGKILL);
}

QString SambaServer::StateFile(const char* name) const {
    return folder_.filePath(QLatin1String("state/") + QString::fromLatin1(name));
}

SmbHost SambaServer::Host(const QString& name) const {
    return {.name = name,
            .workgroup = QStringLiteral("WORKGROUP"),
            .address = QStringLiteral("127.0.0.1"),
            .port = port_};
}

QString SambaServer::Path(const QString& relative) const {
    return folder_.filePath(relative);
}

void SambaServer::AddFolder(const QString& relative) {
    QDir(folder_.path()).mkpath(relative);
}

void SambaServer::AddFile(const QString& relative, const QByteArray& content) {
    const QString path = Path(relative);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
}

} // namespace netrove

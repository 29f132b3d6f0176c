#include "smb/helper/SmbClient.h"

#include "smb/helper/Kerberos.h"
#include "smb/helper/LibraryAnswers.h"
#include "smb/helper/SmbUrl.h"
#include "smb/helper/WorkgroupPipe.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <sys/mman.h>
#include <unistd.h>

namespace netrove {
namespace {

/// The library's own time limit for a request, in milliseconds: the first answer of a disk that
/// sleeps takes 10 to 15 s. The program has tested before that the server answers at all.
constexpr int RequestTimeout = 20000;

/// Entries in one part of an answer.
constexpr std::size_t PartEntries = 500;

/// What libsmbclient is told in addition to the system's configuration. Without NetBIOS no call
/// waits for the answers to a broadcast.
constexpr char Configuration[] = "[global]\n"
                                 "disable netbios = yes\n"
                                 "name resolve order = host\n"
                                 "client signing = ";

/// The library gives the same errno for a logon that isn't let in and for a share that isn't open
/// to a user who was let in. Only what it would write to its log, at this level, tells them apart.
constexpr int LogonLogLevel = 3;
constexpr char LogonFailed[] = "login failed";

/// Bytes of a name or password that the library has room for, including the zero at the end. A
/// longer one would be cut, and so be wrong.
constexpr qsizetype LogonBytes = 256;

constexpr char GuestName[] = "guest";

void CopyText(QByteArrayView text, char* buffer, int size) {
    std::snprintf(buffer, static_cast<std::size_t>(size), "%s", text.data());
}

bool FitsLibrary(const SmbLogon& logon) {
    return logon.user.toUtf8().size() < LogonBytes && logon.domain.toUtf8().size() < LogonBytes &&
           logon.password.Bytes().size() < LogonBytes;
}

bool KeepsFile(SmbRequest::Kind kind) {
    using Kind = SmbRequest::Kind;
    return kind == Kind::Read || kind == Kind::Inspect || kind == Kind::Fetch;
}

bool IsConnectionLost(int status) {
    return status == ECONNABORTED || status == ECONNRESET || status == ENOTCONN || status == EPIPE;
}

bool LoadConfiguration(SMBCCTX* context, bool requiresSigning) {
    const int file = memfd_create("smb.conf", MFD_CLOEXEC);
    if (file < 0)
        return false;
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(file);
    const QByteArray text =
        QByteArray(Configuration) + (requiresSigning ? "required\n" : "default\n");
    const bool isLoaded =
        write(file, text.constData(), static_cast<std::size_t>(text.size())) == text.size() &&
        smbc_setConfiguration(context, path.constData()) == 0;
    close(file);
    return isLoaded;
}

/// Whether the server may let us in another way. EINVAL is what the library gives for failures that
/// it has no errno for.
bool IsRefusal(int status) {
    return status == EACCES || status == EPERM || status == EINVAL;
}

} // namespace

SmbClient::SmbClient() {
    SMBCCTX* context = smbc_new_context();
    if (!context)
        return;
    Configure(context);
    if (!smbc_init_context(context)) {
        smbc_free_context(context, 0);
        return;
    }
    smbc_set_context(context);
    context_ = context;
}

SmbClient::~SmbClient() {
    file_.Close();
    if (context_)
        smbc_free_context(context_, 1);
}

void SmbClient::Configure(SMBCCTX* context) {
    smbc_setDebug(context, LogonLogLevel);
    smbc_setLogCallback(context, this, &SmbClient::HearLog);
    smbc_setOptionUserData(context, this);
    smbc_setFunctionAuthDataWithContext(context, &SmbClient::AnswerLogon);
    smbc_setTimeout(context, RequestTimeout);
    // Else a wrong password would silently become a guest's session.
    smbc_setOptionNoAutoAnonymousLogin(context, 1);
    // Else an empty password would stand for one that winbind may know, and guests wouldn't get in.
    smbc_setOptionUseCCache(context, 0);
    (void)LoadConfiguration(context, false);
}

bool SmbClient::RequireSigning(bool isRequired) {
    if (signingRequired_ != isRequired && !LoadConfiguration(context_, isRequired))
        return false;
    signingRequired_ = isRequired;
    return true;
}

void SmbClient::HearLog(void* client, int /*level*/, const char* message) {
    if (std::strstr(message, LogonFailed))
        static_cast<SmbClient*>(client)->logonFailed_ = true;
}

void SmbClient::AnswerLogon(SMBCCTX* context, const char* /*server*/, const char* /*share*/,
                            char* workgroup, int workgroupSize, char* user, int userSize,
                            char* password, int passwordSize) {
    const auto* client = static_cast<const SmbClient*>(smbc_getOptionUserData(context));
    CopyText("", user, userSize);
    CopyText("", password, passwordSize);
    switch (client->ways_[client->way_]) {
    case Way::Kerberos:
        // Any name will do, but not an empty one: the ticket tells who the user is.
        CopyText(GuestName, user, userSize);
        break;
    case Way::Logon:
        CopyText(client->logon_->user.toUtf8(), user, userSize);
        CopyText(client->logon_->password.Bytes(), password, passwordSize);
        if (!client->logon_->domain.isEmpty())
            CopyText(client->logon_->domain.toUtf8(), workgroup, workgroupSize);
        break;
    case Way::Guest:
        CopyText(GuestName, user, userSize);
        break;
    case Way::Nameless:
        break;
    }
}

int SmbClient::Do(const SmbRequest& request, const Part& part) {
    if (!KeepsFile(request.kind))
        file_.Close();
    if (request.logon && !FitsLibrary(*request.logon))
        return SmbEnd::LogonRefused;
    LeaveOtherLogon(request);
    LeaveOtherShare(request.share);
    const int status = TryWays(request, part);
    letIn_ = letIn_ || status == 0;
    return status;
}

int SmbClient::TryWays(const SmbRequest& request, const Part& part) {
    const std::size_t tries = letIn_ ? 1 : ways_.size();
    int status = 0;
    for (std::size_t at = 0; at < tries; ++at) {
        if (at > 0)
            way_ = (way_ + 1) % ways_.size();
        if (!Use(ways_[way_]))
            return EIO;
        SmbRequest asked = request;
        if (ways_[way_] == Way::Kerberos)
            asked.host = kerberosHost_;
        logonFailed_ = false;
        status = TryConnected(asked, part);
        if (!IsRefusal(status))
            return status;
    }
    if (logonFailed_)
        return SmbEnd::LogonRefused;
    return status == SmbEnd::LogonRefused ? EACCES : status;
}

void SmbClient::LeaveOtherLogon(const SmbRequest& request) {
    const QString server = request.host + u':' + QString::number(request.port);
    if (!ways_.empty() && server == server_ && request.logon == logon_)
        return;
    file_.Close();
    smbc_getFunctionPurgeCachedServers(context_)(context_);
    server_ = server;
    logon_ = request.logon;
    letIn_ = false;
    way_ = 0;
    kerberosHost_ = MayHaveTicket() ? KerberosHost(request) : QString();
    ways_.clear();
    if (!kerberosHost_.isEmpty())
        ways_.push_back(Way::Kerberos);
    if (logon_)
        ways_.push_back(Way::Logon);
    else
        ways_.insert(ways_.end(), {Way::Guest, Way::Nameless});
}

/// Uses a way for the next request. A server may let in a user that it doesn't know as a guest; it
/// says so in a flag that the library ignores. Guests can't sign, so to require signing keeps a
/// logon from becoming a guest's session.
bool SmbClient::Use(Way way) {
    smbc_setOptionUseKerberos(context_, way == Way::Kerberos ? 1 : 0);
    smbc_setOptionFallbackAfterKerberos(context_, 0);
    return RequireSigning(way == Way::Kerberos || way == Way::Logon);
}

/// The library makes a connection for each share. A search goes share by share, and many servers
/// take few connections: so the one for the previous share is closed. (The library's own option to
/// serve all shares over one connection mixes up the folders of different shares.)
void SmbClient::LeaveOtherShare(const QString& share) {
    if (share == share_)
        return;
    file_.Close();
    smbc_getFunctionPurgeCachedServers(context_)(context_);
    share_ = share;
}

/// Makes a connection anew, once, if it was lost while nobody used it.
int SmbClient::TryConnected(const SmbRequest& request, const Part& part) {
    bool sent = false;
    const Part noting = [&](const SmbAnswer& answer) {
        sent = true;
        return part(answer);
    };
    const int status = Try(request, noting);
    return IsConnectionLost(status) && !sent ? Try(request, noting) : status;
}

int SmbClient::Try(const SmbRequest& request, const Part& part) {
    const QByteArray url = SmbUrl(request);
    switch (request.kind) {
    case SmbRequest::Kind::ListShares:
        return ListShares(url, part);
    case SmbRequest::Kind::ListFolder:
        return ListFolder(request, url, part);
    case SmbRequest::Kind::Stat:
        return Stat(url, part);
    case SmbRequest::Kind::Read:
        return file_.Read(request, url, part);
    case SmbRequest::Kind::Workgroup:
        return AskWorkgroup(url, part);
    case SmbRequest::Kind::Inspect:
        return file_.Inspect(url, part);
    case SmbRequest::Kind::Fetch:
        return file_.Fetch(request, url, part);
    case SmbRequest::Kind::Resolve:
        break;
    }
    return EINVAL;
}

int SmbClient::ListShares(const QByteArray& url, const Part& part) {
    errno = 0;
    const int server = smbc_opendir(url.constData());
    if (server < 0)
        return LibraryFailure();
    SmbShares shares;
    while (const smbc_dirent* entry = smbc_readdir(static_cast<unsigned>(server))) {
        if (entry->smbc_type != SMBC_FILE_SHARE && entry->smbc_type != SMBC_PRINTER_SHARE)
            continue;
        shares.push_back({.kind = entry->smbc_type == SMBC_PRINTER_SHARE ? SmbShare::Kind::Printer
                                                                         : SmbShare::Kind::Disk,
                          .name = QString::fromUtf8(&entry->name[0], entry->namelen),
                          .comment = QString::fromUtf8(entry->comment)});
        if (shares.size() == PartEntries) {
            if (!part(shares))
                break;
            shares.clear();
        }
    }
    smbc_closedir(server);
    part(shares);
    return 0;
}

int SmbClient::ListFolder(const SmbRequest& request, const QByteArray& url, const Part& part) {
    errno = 0;
    const int folder = smbc_opendir(url.constData());
    if (folder < 0) {
        const int status = LibraryFailure();
        struct stat top = {};
        // The top of a share with no entries, not even "." and "..", looks as if it didn't exist.
        const bool isEmptyTop =
            status == ENOENT && request.path.isEmpty() && smbc_stat(url.constData(), &top) == 0;
        return isEmptyTop ? 0 : status;
    }
    const int status = SendEntries(folder, part);
    smbc_closedir(folder);
    return status;
}

/// The folder itself is the entry "." of its listing, which servers give first. To get an entry's
/// number is dear, as the library parses its address again: only this entry's is asked for.
int SmbClient::SendEntries(int folder, const Part& part) {
    SmbEntries entries;
    struct stat self = {};
    bool isFirst = true;
    errno = 0;
    while (const libsmb_file_info* info =
               smbc_readdirplus2(static_cast<unsigned>(folder), isFirst ? &self : nullptr)) {
        if (isFirst && std::strcmp(info->name, ".") == 0 &&
            !part(SmbFolder{.number = self.st_ino, .changed = Nanoseconds(info->ctime_ts)}))
            return ECANCELED;
        isFirst = false;
        entries.push_back({.name = QString::fromUtf8(info->name),
                           .attributes = info->attrs,
                           .length = static_cast<qint64>(info->size),
                           .modified = Milliseconds(info->mtime_ts)});
        if (entries.size() == PartEntries) {
            if (!part(entries))
                return ECANCELED;
            entries.clear();
        }
    }
    return part(entries) ? 0 : ECANCELED;
}

int SmbClient::Stat(const QByteArray& url, const Part& part) {
    struct stat file = {};
    errno = 0;
    if (smbc_stat(url.constData(), &file) < 0)
        return LibraryFailure();
    part(EntryOf(file));
    return 0;
}

} // namespace netrove

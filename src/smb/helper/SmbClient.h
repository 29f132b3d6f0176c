#pragma once

#include "smb/SmbMessages.h"
#include "smb/helper/RemoteFile.h"

#include <QByteArray>
#include <libsmbclient.h>

#include <optional>
#include <vector>

namespace netrove {

/// libsmbclient: everything of the library stays behind this class. Its options are global to the
/// process, and so there is one object.
class SmbClient {
public:
    using Part = RemoteFile::Part;

    SmbClient();
    SmbClient(const SmbClient&) = delete;
    SmbClient& operator=(const SmbClient&) = delete;
    ~SmbClient();

    /// Whether the library could be started.
    [[nodiscard]] bool IsReady() const { return context_ != nullptr; }

    /// Does what is asked; returns 0 or an errno.
    [[nodiscard]] int Do(const SmbRequest& request, const Part& part);

    /// Closes the file that reads keep open.
    void CloseFile() { file_.Close(); }

private:
    /// How a server is asked to let us in. There are two ways for guests: Windows lets in "guest"
    /// but no empty name; servers that map no unknown user to guest do the opposite.
    enum class Way { Kerberos, Logon, Guest, Nameless };

    static void HearLog(void* client, int level, const char* message);
    static void AnswerLogon(SMBCCTX* context, const char* server, const char* share,
                            char* workgroup, int workgroupSize, char* user, int userSize,
                            char* password, int passwordSize);
    void Configure(SMBCCTX* context);
    void LeaveOtherLogon(const SmbRequest& request);
    [[nodiscard]] bool Use(Way way);
    [[nodiscard]] bool RequireSigning(bool isRequired);
    [[nodiscard]] int TryWays(const SmbRequest& request, const Part& part);
    void LeaveOtherShare(const QString& share);
    [[nodiscard]] int Try(const SmbRequest& request, const Part& part);
    [[nodiscard]] int TryConnected(const SmbRequest& request, const Part& part);
    [[nodiscard]] int ListShares(const QByteArray& url, const Part& part);
    [[nodiscard]] int ListFolder(const SmbRequest& request, const QByteArray& url,
                                 const Part& part);
    [[nodiscard]] int SendEntries(int folder, const Part& part);
    [[nodiscard]] int Stat(const QByteArray& url, const Part& part);

    SMBCCTX* context_ = nullptr;
    // The server and logon of the last request. Another one has its ways tried anew.
    QString server_;
    std::optional<SmbLogon> logon_;
    std::vector<Way> ways_;    ///< the ways to try, the best first
    std::size_t way_ = 0;      ///< the one in use
    bool letIn_ = false;       ///< the way in use is known to be good
    bool logonFailed_ = false; ///< the server hasn't let the running request in
    QString kerberosHost_;     ///< empty where Kerberos can't be tried
    bool signingRequired_ = false;
    QString share_; ///< that of the last request
    RemoteFile file_;
};

} // namespace netrove

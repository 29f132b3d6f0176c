#pragma once

#include "smb/SmbMemory.h"
#include "smb/SmbMessages.h"

#include <QByteArray>
#include <libsmbclient.h>

#include <array>
#include <functional>
#include <memory>

namespace netrove {

/// libsmbclient: everything of the library stays behind this class. Its options are global to the
/// process, and so there is one object.
class SmbClient {
public:
    /// Takes one part of an answer; false where nobody wants more.
    using Part = std::function<bool(const SmbAnswer& part)>;

    SmbClient();
    SmbClient(const SmbClient&) = delete;
    SmbClient& operator=(const SmbClient&) = delete;
    ~SmbClient();

    /// Whether the library could be started.
    [[nodiscard]] bool IsReady() const { return context_ != nullptr; }

    /// Does what is asked, gives 0 or an errno.
    [[nodiscard]] int Do(const SmbRequest& request, const Part& part);

    /// Closes the file that reads keep open.
    void CloseFile();

private:
    struct Logon {
        const char* user;
        const char* password;
    };
    /// Tried in turn until one is let in: Windows lets in guests but not the nameless, servers
    /// that map no unknown user to guest do the opposite.
    static constexpr std::array<Logon, 2> Logons{{{"guest", ""}, {"", ""}}};

    static void AnswerLogon(SMBCCTX* context, const char* server, const char* share,
                            char* workgroup, int workgroupSize, char* user, int userSize,
                            char* password, int passwordSize);
    void Configure(SMBCCTX* context);
    void LeaveOtherShare(const QString& share);
    [[nodiscard]] int Try(const SmbRequest& request, const Part& part);
    [[nodiscard]] int TryConnected(const SmbRequest& request, const Part& part);
    [[nodiscard]] int ListShares(const QByteArray& url, const Part& part);
    [[nodiscard]] int ListFolder(const SmbRequest& request, const QByteArray& url,
                                 const Part& part);
    [[nodiscard]] int SendEntries(int folder, const Part& part);
    [[nodiscard]] int Stat(const QByteArray& url, const Part& part);
    [[nodiscard]] int Read(const SmbRequest& request, const QByteArray& url, const Part& part);
    [[nodiscard]] int Inspect(const QByteArray& url, const Part& part);
    [[nodiscard]] int Fetch(const SmbRequest& request, const QByteArray& url, const Part& part);
    [[nodiscard]] int ReadPieces(const SmbRequest& request, const Part& part);
    [[nodiscard]] int FetchPieces(const SmbRequest& request, const Part& part);
    [[nodiscard]] static int Workgroup(const QByteArray& url, const Part& part);
    [[nodiscard]] int OpenFile(const QByteArray& url);

    SMBCCTX* context_ = nullptr;
    std::size_t logon_ = 0;
    bool letIn_ = false; ///< the logon is known to be good
    QString share_;      ///< the one asked last
    QByteArray fileUrl_;
    int file_ = -1;
    std::unique_ptr<SmbMemory> memory_; ///< null until it is needed
};

} // namespace netrove

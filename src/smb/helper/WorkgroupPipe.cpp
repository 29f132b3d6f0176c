#include "smb/helper/WorkgroupPipe.h"

#include "smb/WorkstationInfo.h"
#include "smb/helper/LibraryAnswers.h"

#include <libsmbclient.h>

#include <cerrno>

#include <fcntl.h>

namespace netrove {
namespace {

/// Reads exactly so many bytes of a message. If more were asked for than the message has, the
/// library would ask the pipe again for the rest, and wait for a message that never comes.
int ReadExactly(int pipe, QByteArray& bytes, qsizetype count) {
    const qsizetype before = bytes.size();
    bytes.resize(before + count);
    errno = 0;
    const ssize_t read = smbc_read(pipe, bytes.data() + before, static_cast<std::size_t>(count));
    if (read < 0)
        return LibraryFailure();
    return read == count ? 0 : EPROTO;
}

/// Writes one message to a pipe and reads the one that answers it.
int Exchange(int pipe, const QByteArray& question, QByteArray& answer) {
    answer.clear();
    errno = 0;
    if (smbc_write(pipe, question.constData(), static_cast<std::size_t>(question.size())) !=
        question.size())
        return LibraryFailure();
    if (const int status = ReadExactly(pipe, answer, WorkstationInfo::HeaderBytes); status != 0)
        return status;
    const auto length = WorkstationInfo::MessageBytes(answer);
    return length ? ReadExactly(pipe, answer, *length - answer.size()) : EPROTO;
}

int AskName(int pipe, QString& workgroup) {
    QByteArray answer;
    if (const int status = Exchange(pipe, WorkstationInfo::Bind(), answer); status != 0)
        return status;
    if (!WorkstationInfo::IsBound(answer))
        return EACCES;
    if (const int status = Exchange(pipe, WorkstationInfo::Request(), answer); status != 0)
        return status;
    const auto name = WorkstationInfo::Workgroup(answer);
    workgroup = name.value_or(QString());
    return name ? 0 : EACCES;
}

} // namespace

int AskWorkgroup(const QByteArray& url, const std::function<bool(const SmbAnswer& part)>& part) {
    errno = 0;
    const int pipe = smbc_open(url.constData(), O_RDWR, 0);
    if (pipe < 0)
        return LibraryFailure();
    SmbWorkgroup workgroup;
    const int status = AskName(pipe, workgroup.name);
    smbc_close(pipe);
    if (status == 0)
        part(workgroup);
    return status;
}

} // namespace netrove

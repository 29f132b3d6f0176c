#include "smb/helper/SmbUrl.h"

namespace netrove {

QByteArray SmbUrl(const SmbRequest& request) {
    QByteArray url = "smb://" + request.host.toUtf8().toPercentEncoding() + ':' +
                     QByteArray::number(request.port) + '/';
    if (request.kind == SmbRequest::Kind::ListShares)
        return url;
    if (request.kind == SmbRequest::Kind::Workgroup)
        return url + "IPC$/wkssvc";
    url += request.share.toUtf8().toPercentEncoding();
    if (!request.path.isEmpty())
        url += '/' + request.path.toUtf8().toPercentEncoding("/");
    return url;
}

} // namespace netrove

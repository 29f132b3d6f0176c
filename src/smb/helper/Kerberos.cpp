#include "smb/helper/Kerberos.h"

#include "runtime/SourceText.h"
#include "smb/helper/Resolve.h"

#include <QFile>

#include <algorithm>

#include <unistd.h>

namespace netrove {
namespace {

constexpr char FileType[] = "FILE:";

} // namespace

bool MayHaveTicket() {
    const QByteArray cache = qgetenv("KRB5CCNAME");
    if (cache.isEmpty())
        return QFile::exists("/tmp/krb5cc_"_L1 + QString::number(getuid()));
    if (cache.startsWith(FileType))
        return QFile::exists(QFile::decodeName(cache.mid(sizeof FileType - 1)));
    return !cache.startsWith('/') || QFile::exists(QFile::decodeName(cache));
}

QString KerberosHost(const SmbRequest& request) {
    if (!IsNumericHost(request.host))
        return request.host;
    if (request.computer.isEmpty() || IsNumericHost(request.computer))
        return {};
    SmbAddresses addresses;
    const bool isSame = Resolve(request.computer, addresses) == 0 &&
                        std::any_of(addresses.begin(), addresses.end(), [&](const SmbAddress& one) {
                            return one.text == request.host;
                        });
    return isSame ? request.computer : QString();
}

} // namespace netrove

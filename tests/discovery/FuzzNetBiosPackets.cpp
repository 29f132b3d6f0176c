#include "discovery/ComputerName.h"
#include "discovery/NetBiosPackets.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    namespace NetBiosPackets = netrove::NetBiosPackets;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    // Also behind a head and a record that fit, so that the names are read too.
    const QByteArray header = QByteArray::fromHex("000184000000000100000000"
                                                  "000021000100000000ffff");
    QByteArray status = header + bytes;
    status[21] = static_cast<char>(bytes.size() >> 8);
    status[22] = static_cast<char>(bytes.size() & 0xFF);
    for (const QByteArray& packet : {bytes, status}) {
        const auto reply = NetBiosPackets::Parse(packet);
        if (!reply)
            continue;
        for (const QString& name : {reply->computer, reply->workgroup}) {
            if (!name.isEmpty() && !netrove::IsComputerName(name))
                std::abort();
        }
    }
    return 0;
}

#include "discovery/ComputerName.h"
#include "discovery/NetBiosPackets.h"
#include "fakes/Fuzz.h"

void netrove::Fuzz(const QByteArray& bytes) {
    // Also behind a head and a record that fit, so that the names are read too.
    QByteArray status = QByteArray::fromHex("000184000000000100000000"
                                            "000021000100000000ffff") +
                        bytes;
    status[21] = static_cast<char>(bytes.size() >> 8);
    status[22] = static_cast<char>(bytes.size() & 0xFF);
    for (const QByteArray& packet : {bytes, status}) {
        const auto reply = NetBiosPackets::Parse(packet).value_or(NetBiosPackets::Reply());
        for (const QString& name : {reply.computer, reply.workgroup})
            Require(name.isEmpty() || IsComputerName(name));
    }
}

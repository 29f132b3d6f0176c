#include "fakes/Fuzz.h"
#include "smb/WorkstationInfo.h"

/// Also behind a header that fits, so that the rest is read too.
void netrove::Fuzz(const QByteArray& bytes) {
    QByteArray message = QByteArray::fromHex("05000003100000000000000001000000") + bytes;
    message[8] = static_cast<char>(message.size() & 0xFF);
    message[9] = static_cast<char>(message.size() >> 8);
    static_cast<void>(WorkstationInfo::MessageBytes(bytes));
    for (const char type : {'\x0C', '\x02'}) {
        message[2] = type;
        for (const QByteArray& one : {bytes, message}) {
            static_cast<void>(WorkstationInfo::IsBound(one));
            static_cast<void>(WorkstationInfo::Workgroup(one));
        }
    }
}

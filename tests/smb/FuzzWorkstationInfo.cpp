#include "smb/WorkstationInfo.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using netrove::WorkstationInfo;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    static_cast<void>(WorkstationInfo::MessageBytes(bytes));
    static_cast<void>(WorkstationInfo::IsBound(bytes));
    static_cast<void>(WorkstationInfo::Workgroup(bytes));

    // The same behind a header that fits, so that the rest is read too.
    const auto header = [&bytes](char type) {
        QByteArray message = QByteArray::fromHex("05000003100000000000000001000000") + bytes;
        message[2] = type;
        message[8] = static_cast<char>(message.size() & 0xFF);
        message[9] = static_cast<char>(message.size() >> 8);
        return message;
    };
    static_cast<void>(WorkstationInfo::IsBound(header(12)));
    static_cast<void>(WorkstationInfo::Workgroup(header(2)));
    return 0;
}

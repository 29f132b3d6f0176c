#include "smb/WorkstationInfo.h"

#include "fakes/Text.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

/// What Samba 4.17 answers as FILER in MYHOME.
QByteArray SambaAnswer() {
    return QByteArray::fromHex("05000203100000006c00000002000000"
                               "54000000000000006400000000000200"
                               "f4010000040002000800020006000000"
                               "01000000060000000000000006000000"
                               "460049004c0045005200000007000000"
                               "00000000070000004d00590048004f00"
                               "4d004500000000000000000000000000")
        .left(108);
}

QByteArray With(QByteArray message, qsizetype at, char byte) {
    message[at] = byte;
    return message;
}

TEST(WorkstationInfo, TellsTheWorkgroupOrNothing) {
    const QByteArray answer = SambaAnswer();
    EXPECT_EQ(WorkstationInfo::MessageBytes(answer.left(WorkstationInfo::HeaderBytes)),
              answer.size());
    EXPECT_EQ(WorkstationInfo::Workgroup(answer), Text("MYHOME"));

    EXPECT_FALSE(WorkstationInfo::Workgroup(answer.chopped(1)));
    EXPECT_FALSE(WorkstationInfo::Workgroup(answer + '\0'));
    constexpr qsizetype type = 2;
    constexpr qsizetype level = 24;
    constexpr qsizetype computerLength = 60;
    constexpr qsizetype workgroupPointer = 40;
    constexpr qsizetype result = 104;
    EXPECT_FALSE(WorkstationInfo::Workgroup(With(answer, type, 3))) << "a fault";
    EXPECT_FALSE(WorkstationInfo::Workgroup(With(answer, level, 101)));
    EXPECT_FALSE(WorkstationInfo::Workgroup(With(answer, computerLength, 60))) << "beyond the end";
    EXPECT_FALSE(WorkstationInfo::Workgroup(
        With(With(answer, workgroupPointer, 0), workgroupPointer + 2, 0)));
    EXPECT_FALSE(WorkstationInfo::Workgroup(With(answer, result, 5))) << "access denied";
    EXPECT_FALSE(WorkstationInfo::IsBound(answer));
}

} // namespace
} // namespace netrove

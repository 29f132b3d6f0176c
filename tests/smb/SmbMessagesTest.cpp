#include "smb/SmbMessages.h"

#include "fakes/Text.h"
#include "smb/SmbMemory.h"
#include "smb/WorkstationInfo.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

SmbRequest ListRequest(const QString& path = {}) {
    return {
        .kind = SmbRequest::Kind::ListFolder, .host = Text("h"), .share = Text("s"), .path = path};
}

bool IsTaken(const SmbRequest& request) {
    return DecodeQuestion(EncodeQuestion(request)).has_value();
}

TEST(SmbMessages, ARequestNamesAPlaceInAShare) {
    for (const char* path : {"", "a", "a/...b/c d", "%2e%2e/#?", "\u00e9"})
        EXPECT_TRUE(IsTaken(ListRequest(Text(path)))) << path;
    for (const char* path : {"/a", "a//b", "a/", "..", "a/../b", ".", "a\\b"})
        EXPECT_FALSE(IsTaken(ListRequest(Text(path)))) << path;
    EXPECT_FALSE(IsTaken(ListRequest(QString(1, QChar(u'\0')))));

    SmbRequest share = ListRequest();
    share.share = Text("..");
    SmbRequest host = ListRequest();
    host.host = Text("h/s");
    SmbRequest offset = ListRequest();
    offset.offset = -1;
    for (const SmbRequest& request : {share, host, offset})
        EXPECT_FALSE(IsTaken(request));
}

TEST(SmbMessages, ALogonTravelsWithItsRequest) {
    SmbRequest request = ListRequest();
    request.logon = {.domain = Text("d"), .user = Text("u")};
    for (const char* password : {"", "p\xc3\xa4 %", "\xff"}) {
        request.logon->password = Secret(password);
        const auto decoded = DecodeQuestion(EncodeQuestion(request));
        ASSERT_TRUE(decoded) << password;
        EXPECT_EQ(std::get<SmbRequest>(*decoded).logon, request.logon) << password;
    }
    // The library would take less than that for the password.
    for (const QByteArray& password : {QByteArray("a\0b", 3), QByteArray(2000, 'x')}) {
        request.logon->password = Secret(password);
        EXPECT_FALSE(IsTaken(request));
    }
    request.logon = {.user = QString()};
    EXPECT_FALSE(IsTaken(request));
}

TEST(SmbMessages, AMessageIsWholeOrNone) {
    const QByteArray payload =
        EncodeAnswer(SmbEntries{{.name = Text("a"), .length = qint64{5} << 30}});
    ASSERT_TRUE(DecodeAnswer(payload));
    for (const QByteArray& bad : {payload.chopped(1), QByteArray(payload + '\0'), QByteArray(),
                                  QByteArray(1, '\x7f'), EncodeAnswer(SmbEntries{{.length = -1}})})
        EXPECT_FALSE(DecodeAnswer(bad)) << bad.toHex().constData();
}

TEST(SmbMessages, WhatIsFetchedLiesInTheSharedMemory) {
    constexpr auto all = static_cast<quint32>(SmbMemory::Bytes);
    SmbRequest request = ListRequest(Text("file"));
    request.kind = SmbRequest::Kind::Fetch;
    request.length = all;
    EXPECT_TRUE(IsTaken(request));
    request.length = all + 1;
    EXPECT_FALSE(IsTaken(request));
    const auto isTaken = [](quint32 begin, quint32 length) {
        return DecodeAnswer(EncodeAnswer(SmbFetched{.begin = begin, .length = length})).has_value();
    };
    EXPECT_TRUE(isTaken(0, all) && isTaken(all, 0));
    EXPECT_FALSE(isTaken(1, all) || isTaken(all + 1, ~0U));
}

TEST(WorkstationInfo, TellsTheWorkgroupOrNothing) {
    // What Samba 4.17 answers as FILER in MYHOME.
    const QByteArray answer = QByteArray::fromHex("05000203100000006c00000002000000"
                                                  "54000000000000006400000000000200"
                                                  "f4010000040002000800020006000000"
                                                  "01000000060000000000000006000000"
                                                  "460049004c0045005200000007000000"
                                                  "00000000070000004d00590048004f00"
                                                  "4d0045000000000000000000");
    EXPECT_EQ(WorkstationInfo::MessageBytes(answer.left(WorkstationInfo::HeaderBytes)),
              answer.size());
    EXPECT_EQ(WorkstationInfo::Workgroup(answer), Text("MYHOME"));
    EXPECT_FALSE(WorkstationInfo::IsBound(answer));
    EXPECT_FALSE(WorkstationInfo::Workgroup(answer.chopped(1)));
    EXPECT_FALSE(WorkstationInfo::Workgroup(answer + '\0'));
    // A fault, another level, a name beyond the end, no pointer to the workgroup, no access.
    const std::pair<qsizetype, char> changes[] = {{2, 3}, {24, 101}, {60, 60}, {42, 0}, {104, 5}};
    for (const auto& [at, byte] : changes) {
        QByteArray bad = answer;
        bad[at] = byte;
        if (at == 42)
            bad[40] = 0;
        EXPECT_FALSE(WorkstationInfo::Workgroup(bad)) << at;
    }
}

} // namespace
} // namespace netrove

#include "smb/SmbMessages.h"

#include "fakes/Text.h"
#include "smb/Frames.h"
#include "smb/SmbMemory.h"
#include "smb/WorkstationInfo.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

SmbRequest ListRequest(const QString& path) {
    return {
        .kind = SmbRequest::Kind::ListFolder, .host = Text("h"), .share = Text("s"), .path = path};
}

TEST(SmbMessages, ARequestNamesAPlaceInAShare) {
    for (const QString& path :
         {QString(), Text("a"), Text("a/...b/c d"), Text("%2e%2e/#?"), Text("\u00e9")})
        EXPECT_TRUE(DecodeQuestion(EncodeQuestion(ListRequest(path)))) << path.toStdString();
    for (const QString& path : {Text("/a"), Text("a//b"), Text("a/"), Text(".."), Text("a/../b"),
                                Text("."), Text("a\\b"), QString(1, QChar(u'\0'))})
        EXPECT_FALSE(DecodeQuestion(EncodeQuestion(ListRequest(path)))) << path.toStdString();

    SmbRequest share = ListRequest(QString());
    share.share = Text("..");
    SmbRequest host = ListRequest(QString());
    host.host = Text("h/s");
    SmbRequest offset = ListRequest(QString());
    offset.offset = -1;
    for (const SmbRequest& request : {share, host, offset})
        EXPECT_FALSE(DecodeQuestion(EncodeQuestion(request)));
}

TEST(SmbMessages, ALogonTravelsWithItsRequest) {
    SmbRequest request = ListRequest(QString());
    request.computer = Text("h");
    request.logon = {.domain = Text("d"), .user = Text("u")};
    for (const char* password : {"", "p\xc3\xa4 %", "\xff"}) {
        request.logon->password = Secret(password);
        const auto decoded = DecodeQuestion(EncodeQuestion(request));
        ASSERT_TRUE(decoded) << password;
        EXPECT_EQ(std::get<SmbRequest>(*decoded).logon, request.logon) << password;
    }
    // The library would take less than that for the password.
    request.logon->password = Secret(QByteArrayView("a\0b", 3));
    EXPECT_FALSE(DecodeQuestion(EncodeQuestion(request)));
    request.logon->password = Secret(QByteArray(2000, 'x'));
    EXPECT_FALSE(DecodeQuestion(EncodeQuestion(request)));
    request.logon = {.user = QString()};
    EXPECT_FALSE(DecodeQuestion(EncodeQuestion(request)));
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
    EXPECT_TRUE(DecodeQuestion(EncodeQuestion(request)));
    request.length = all + 1;
    EXPECT_FALSE(DecodeQuestion(EncodeQuestion(request)));

    EXPECT_TRUE(DecodeAnswer(EncodeAnswer(SmbFetched{.begin = 0, .length = all})));
    EXPECT_TRUE(DecodeAnswer(EncodeAnswer(SmbFetched{.begin = all, .length = 0})));
    EXPECT_FALSE(DecodeAnswer(EncodeAnswer(SmbFetched{.begin = 1, .length = all})));
    EXPECT_FALSE(DecodeAnswer(EncodeAnswer(SmbFetched{.begin = all + 1, .length = ~0U})));
}

TEST(Frames, ComeOutAsTheyWentInByteByByte) {
    const QByteArray stream = Frames::Framed("abc") + Frames::Framed("") + Frames::Framed("d");
    Frames frames;
    QByteArrayList out;
    for (const char byte : stream) {
        frames.Append(QByteArrayView(&byte, 1));
        while (const auto frame = frames.Take())
            out.push_back(*frame);
    }
    EXPECT_EQ(out, (QByteArrayList{"abc", "", "d"}));
    EXPECT_FALSE(frames.IsBroken());
    // No memory for what is only announced.
    frames.Append(QByteArray::fromHex("00200001"));
    EXPECT_FALSE(frames.Take());
    EXPECT_TRUE(frames.IsBroken());
}

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

    for (const QByteArray& bad :
         {answer.chopped(1), QByteArray(answer + '\0'), With(answer, 2, 3), // a fault
          With(answer, 24, 101),                                            // another level
          With(answer, 60, 60),                                             // a name beyond the end
          With(With(answer, 40, 0), 42, 0), // no pointer to the workgroup
          With(answer, 104, 5)})            // access denied
        EXPECT_FALSE(WorkstationInfo::Workgroup(bad)) << bad.toHex().constData();
    EXPECT_FALSE(WorkstationInfo::IsBound(answer));
}

} // namespace
} // namespace netrove

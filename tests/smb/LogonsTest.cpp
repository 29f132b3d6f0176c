#include "redirector/Logons.h"

#include "fakes/MemoryKeyring.h"
#include "fakes/Text.h"
#include "smb/SmbMessages.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace netrove {
namespace {

StoredLogon Stored(const char* computer, const char* user, const char* password,
                   bool isInKeyring = false) {
    return {.computer = Text(computer),
            .user = Text(user),
            .password = Secret(password),
            .isInKeyring = isInKeyring};
}

SmbRequest RequestTo(const char* computer) {
    return {.host = Text("192.0.2.1"), .computer = Text(computer)};
}

constexpr auto Ignore = [](Keyring::Outcome) {};

class LogonsTest : public testing::Test {
protected:
    /// The user whose logon a request to that computer gets: "-" for a guest, "!" for a refused.
    std::string UserAt(const char* computer) {
        SmbRequest request = RequestTo(computer);
        const Logons::Turn turn = logons->Apply(request);
        logons->Release(request);
        if (turn != Logons::Turn::Go)
            return turn == Logons::Turn::Refused ? "!" : "...";
        return request.logon ? request.logon->user.toStdString() : "-";
    }

    /// Sends a request that ends with `status`.
    int End(const char* computer, int status) {
        SmbRequest request = RequestTo(computer);
        EXPECT_EQ(logons->Apply(request), Logons::Turn::Go) << computer;
        return logons->Note(request, status);
    }

    std::shared_ptr<MemoryKeyring> keyring = std::make_shared<MemoryKeyring>();
    std::shared_ptr<Logons> logons = std::make_shared<Logons>(keyring);
};

TEST_F(LogonsTest, AComputersOwnComesBeforeThatForAll) {
    EXPECT_EQ(UserAt("A"), "-");
    logons->Store(Stored("a", "own", "p"), Ignore);
    EXPECT_EQ(UserAt("A"), "own");
    EXPECT_EQ(UserAt("B"), "-");
    logons->Store(Stored("", "everywhere", "p"), Ignore);
    EXPECT_EQ(UserAt("A"), "own");
    EXPECT_EQ(UserAt("B"), "everywhere");
    logons->Remove(Text("A"), Ignore);
    EXPECT_EQ(UserAt("A"), "everywhere");
    EXPECT_EQ(keyring->reads, 0) << "nothing of it is the keyring's business";
}

TEST_F(LogonsTest, ARefusedLogonRestsUntilItIsStoredAnew) {
    logons->Store(Stored("", "bob", "wrong"), Ignore);
    EXPECT_EQ(End("A", SmbEnd::LogonRefused), EACCES);
    EXPECT_EQ(UserAt("A"), "!");
    EXPECT_EQ(UserAt("B"), "bob") << "an account of another computer";
    EXPECT_TRUE(logons->IsRefused(QString()));
    logons->Store(Stored("", "bob", "right"), Ignore);
    EXPECT_EQ(UserAt("A"), "bob");
    EXPECT_FALSE(logons->IsRefused(QString()));

    // An account of a domain is one account, wherever it is asked for.
    logons->Store(Stored("", "HOME\\bob", "wrong"), Ignore);
    EXPECT_EQ(End("A", SmbEnd::LogonRefused), EACCES);
    EXPECT_EQ(UserAt("B"), "!");
}

TEST_F(LogonsTest, OneThatWasLetInMayBeRefusedNowAndThen) {
    logons->Store(Stored("A", "bob", "right"), Ignore);
    EXPECT_EQ(End("A", EACCES), EACCES) << "says nothing of the logon";
    EXPECT_EQ(End("A", 0), 0);
    for (const int status : {EPERM, EPERM, ENOENT, EPERM, EPERM})
        End("A", status);
    EXPECT_EQ(UserAt("A"), "bob") << "no room for one more connection";
    End("A", EPERM);
    EXPECT_EQ(UserAt("A"), "!") << "the password was changed at the server";
    EXPECT_EQ(logons->Note(RequestTo("GUEST"), EPERM), EACCES);
}

TEST_F(LogonsTest, OnlyOneRequestFindsOutWhetherALogonIsGood) {
    logons->Store(Stored("", "bob", "p"), Ignore);
    SmbRequest first = RequestTo("A");
    SmbRequest second = RequestTo("a");
    ASSERT_EQ(logons->Apply(first), Logons::Turn::Go);
    EXPECT_EQ(logons->Apply(second), Logons::Turn::Wait);
    EXPECT_EQ(UserAt("B"), "bob");
    logons->Release(first);
    ASSERT_EQ(logons->Apply(second), Logons::Turn::Go);
    (void)logons->Note(second, 0);
    ASSERT_EQ(logons->Apply(first), Logons::Turn::Go);
    EXPECT_EQ(UserAt("A"), "bob") << "side by side from now on";
    // What comes back of a logon that isn't stored any more says nothing of the new one.
    logons->Store(Stored("", "bob", "q"), Ignore);
    EXPECT_EQ(logons->Note(first, EPERM), EACCES);
    EXPECT_EQ(UserAt("A"), "bob");
}

TEST_F(LogonsTest, TheKeyringKeepsThemForTheNextRun) {
    const char* odd = "p %\n\t\xc3\xa4\\@ ";
    logons->Store(Stored("A", "HOME\\b b", odd, true), Ignore);
    logons->Store(Stored("", "all@home", "p", true), Ignore);
    logons->Store(Stored("C", "only now", "p"), Ignore);

    logons = std::make_shared<Logons>(keyring);
    keyring->isSlow = true;
    EXPECT_TRUE(logons->IsReading());
    logons->Store(Stored("", "newer", "q"), Ignore);
    keyring->Answer();
    EXPECT_FALSE(logons->IsReading());
    const auto all = logons->All();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].user, Text("newer"));
    EXPECT_EQ(all[1].user, Text("HOME\\b b"));
    EXPECT_EQ(all[1].password, Secret(odd));
    EXPECT_TRUE(all[1].isInKeyring);
}

TEST_F(LogonsTest, ChangesOfTheKeyringComeOneAfterTheOther) {
    logons->Store(Stored("A", "a", "p", true), Ignore);
    // Another window of the program stores one too.
    std::make_shared<Logons>(keyring)->Store(Stored("X", "x", "p", true), Ignore);
    keyring->isSlow = true;
    logons->Store(Stored("B", "b", "p", true), Ignore);
    logons->Store(Stored("C", "c", "p", true), Ignore);
    logons->Store(Stored("B", "b", "p", false), Ignore);
    logons->Remove(Text("A"), Ignore);
    for (int step = 0; step < 8; ++step)
        keyring->Answer();
    QStringList computers;
    for (const StoredLogon& one : DecodeLogons(keyring->entries.value(Text("logons"))))
        computers += one.computer;
    EXPECT_EQ(computers, (QStringList{Text("X"), Text("C")}));
}

TEST_F(LogonsTest, WhatStandsInTheKeyringMayBeAnything) {
    for (const char* text : {"", "\n\n", "A", "A b", "A b c d", "..  p", "A%2FB u p", "A  p",
                             "A DOM%5C p", "%ff%fe u p\nA", "A u p\na v q"})
        EXPECT_LE(DecodeLogons(Secret(text)).size(), 1U) << text;
    EXPECT_EQ(DecodeLogons(Secret(" u p")).size(), 1U);
    EXPECT_EQ(DecodeLogons(Secret("A u ")).size(), 1U) << "an empty password is one";
    EXPECT_TRUE(DecodeLogons(Secret("..  p")).empty());
    EXPECT_TRUE(DecodeLogons(Secret("A DOM%5C p")).empty());
}

} // namespace
} // namespace netrove

#include "redirector/Logons.h"

#include "fakes/MemoryKeyring.h"
#include "fakes/Text.h"
#include "smb/SmbMessages.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace netrove {
namespace {

SmbRequest RequestTo(const char* computer) {
    return {.host = Text("192.0.2.1"), .computer = Text(computer)};
}

class LogonsTest : public testing::Test {
protected:
    using Turn = Logons::Turn;

    void Store(const char* computer, const char* user, const char* password = "p",
               bool isInKeyring = false) {
        logons->Store({.computer = Text(computer),
                       .user = Text(user),
                       .password = Secret(password),
                       .isInKeyring = isInKeyring},
                      [](Keyring::Outcome) {});
    }

    void Remove(const char* computer) {
        logons->Remove(Text(computer), [](Keyring::Outcome) {});
    }

    /// The user whose logon a request to that computer gets: "-" for a guest, "!" for a refused.
    std::string UserAt(const char* computer) {
        SmbRequest request = RequestTo(computer);
        const Turn turn = logons->Apply(request);
        logons->Release(request);
        if (turn != Turn::Go)
            return turn == Turn::Refused ? "!" : "...";
        return request.logon ? request.logon->user.toStdString() : "-";
    }

    /// Sends a request that ends with `status`.
    int End(const char* computer, int status) {
        SmbRequest request = RequestTo(computer);
        EXPECT_EQ(logons->Apply(request), Turn::Go) << computer;
        return logons->Note(request, status);
    }

    std::shared_ptr<MemoryKeyring> keyring = std::make_shared<MemoryKeyring>();
    std::shared_ptr<Logons> logons = std::make_shared<Logons>(keyring);
};

TEST_F(LogonsTest, AComputersOwnComesBeforeThatForAll) {
    EXPECT_EQ(UserAt("A"), "-");
    Store("a", "own");
    EXPECT_EQ(UserAt("B"), "-");
    Store("", "everywhere");
    EXPECT_EQ(UserAt("A"), "own");
    EXPECT_EQ(UserAt("B"), "everywhere");
    Remove("A");
    EXPECT_EQ(UserAt("A"), "everywhere");
    EXPECT_EQ(keyring->reads, 0) << "nothing of it is the keyring's business";
}

TEST_F(LogonsTest, UsersAreTakenApart) {
    const std::array<const char*, 3> cases[] = {{"bob", "", "bob"},
                                                {"bob@home.example", "home.example", "bob"},
                                                {"HOME\\b@b", "HOME", "b@b"},
                                                {"@bob", "", "@bob"}};
    for (const auto& [typed, domain, user] : cases) {
        const SmbLogon logon = LogonOf({.user = Text(typed)});
        EXPECT_EQ(logon.domain, Text(domain)) << typed;
        EXPECT_EQ(logon.user, Text(user)) << typed;
    }
}

TEST_F(LogonsTest, ARefusedLogonRestsUntilItIsStoredAnew) {
    Store("", "bob", "wrong");
    EXPECT_EQ(End("A", SmbEnd::LogonRefused), EACCES);
    EXPECT_EQ(UserAt("A"), "!");
    EXPECT_EQ(UserAt("B"), "bob") << "an account of another computer";
    EXPECT_TRUE(logons->IsRefused(QString()));
    Store("", "bob", "right");
    EXPECT_EQ(UserAt("A"), "bob");
    EXPECT_FALSE(logons->IsRefused(QString()));

    // An account of a domain is one account, wherever it is asked for.
    Store("", "HOME\\bob", "wrong");
    EXPECT_EQ(End("A", SmbEnd::LogonRefused), EACCES);
    EXPECT_EQ(UserAt("B"), "!");
}

TEST_F(LogonsTest, OneThatWasLetInMayBeRefusedNowAndThen) {
    Store("A", "bob");
    EXPECT_EQ(End("A", EACCES), EACCES) << "says nothing of the logon";
    for (const int status : {0, EPERM, EPERM, ENOENT, EPERM, EPERM})
        End("A", status);
    EXPECT_EQ(UserAt("A"), "bob") << "no room for one more connection";
    End("A", EPERM);
    EXPECT_EQ(UserAt("A"), "!") << "the password was changed at the server";
    EXPECT_EQ(logons->Note(RequestTo("GUEST"), EPERM), EACCES);
}

TEST_F(LogonsTest, OnlyOneRequestFindsOutWhetherALogonIsGood) {
    Store("", "bob");
    SmbRequest first = RequestTo("A");
    SmbRequest second = RequestTo("a");
    ASSERT_EQ(logons->Apply(first), Turn::Go);
    EXPECT_EQ(logons->Apply(second), Turn::Wait);
    EXPECT_EQ(UserAt("B"), "bob");
    logons->Release(first);
    ASSERT_EQ(logons->Apply(second), Turn::Go);
    (void)logons->Note(second, 0);
    ASSERT_EQ(logons->Apply(first), Turn::Go);
    EXPECT_EQ(UserAt("A"), "bob") << "side by side from now on";
    // A logon that another one stands before for a while isn't waited for in vain later.
    Store("", "all");
    SmbRequest third = RequestTo("C");
    ASSERT_EQ(logons->Apply(third), Turn::Go);
    Store("C", "own");
    logons->Release(third);
    Remove("C");
    EXPECT_EQ(UserAt("C"), "all");
    // What comes back of a logon that isn't stored any more says nothing of the new one.
    Store("", "bob", "q");
    EXPECT_EQ(logons->Note(first, EPERM), EACCES);
    EXPECT_EQ(UserAt("A"), "bob");
}

TEST_F(LogonsTest, TheKeyringKeepsThemForTheNextRun) {
    const char* odd = "p %\n\t\xc3\xa4\\@ ";
    Store("A", "HOME\\b b", odd, true);
    Store("", "all@home", "p", true);
    Store("C", "only now");

    logons = std::make_shared<Logons>(keyring);
    keyring->isSlow = true;
    EXPECT_TRUE(logons->IsReading());
    Store("", "newer", "q");
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
    Store("A", "a", "p", true);
    const auto own = std::exchange(logons, std::make_shared<Logons>(keyring));
    Store("X", "x", "p", true); // another window of the program
    logons = own;
    keyring->isSlow = true;
    Store("B", "b", "p", true);
    Store("C", "c", "p", true);
    Store("B", "b", "p", false);
    Remove("A");
    for (int step = 0; step < 8; ++step)
        keyring->Answer();
    QStringList computers;
    for (const StoredLogon& one : DecodeLogons(keyring->entries.value(Text("logons"))))
        computers += one.computer;
    EXPECT_EQ(computers, Texts({"X", "C"}));
}

TEST_F(LogonsTest, WhatStandsInTheKeyringMayBeAnything) {
    for (const char* text :
         {"", "\n\n", "A", "A b", "A b c d", "..  p", "A%2FB u p", "A  p", "A DOM%5C p"})
        EXPECT_TRUE(DecodeLogons(Secret(text)).empty()) << text;
    for (const char* text :
         {" u p", "%ff%fe u p\nA", "A u p\na v q", "A u "}) // an empty password is one
        EXPECT_EQ(DecodeLogons(Secret(text)).size(), 1U) << text;
}

} // namespace
} // namespace netrove

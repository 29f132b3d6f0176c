#include "discovery/Answer.h"
#include "fakes/Text.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

Answer Said(FoundBy way, const char* name, const QByteArray& address) {
    return {.foundBy = way, .name = Text(name), .address = QString::fromUtf8(address)};
}

std::string Names(const Answers& answers) {
    QStringList names;
    for (const FoundComputer& computer : MergeAnswers(answers))
        names += computer.name;
    return names.join(u' ').toStdString();
}

TEST(MergeAnswersTest, OneComputerHasOneEntryWhateverItWasCalled) {
    Answer smb = Said(FoundBy::DnsSd, "attic-pc", "fe80::2%eth0");
    smb.port = 1445;
    Answer group = Said(FoundBy::NetBios, "ATTIC", "10.0.0.2");
    group.workgroup = Text("HOME");
    group.isMasterBrowser = true;
    const Answer device = Said(FoundBy::WsDiscovery, "Attic", "fe80::2%eth0");
    Answer info = Said(FoundBy::DnsSd, "attic-pc", "10.0.0.9");
    info.sharesFiles = false;
    info.model = Text("MacSamba");
    const auto found = MergeAnswers({smb, group, device, info});
    ASSERT_EQ(found.size(), 1U);
    const FoundComputer expected = {
        .name = Text("Attic"),
        .workgroup = Text("HOME"),
        .addresses = {Text("10.0.0.2"), Text("10.0.0.9"), Text("fe80::2%eth0")},
        .port = 1445,
        .foundBy = FoundBy::WsDiscovery | FoundBy::NetBios | FoundBy::DnsSd,
        .isMasterBrowser = true,
        .model = Text("MacSamba")};
    EXPECT_EQ(found[0], expected);
    Answer told = device;
    told.workgroup = Text("FIRST");
    EXPECT_EQ(MergeAnswers({group, told})[0].workgroup, Text("FIRST")) << "the better way";
    EXPECT_EQ(MergeAnswers({device})[0].workgroup, std::nullopt);
}

/// Nobody takes others off the list by claiming their addresses.
TEST(MergeAnswersTest, ComputersStayApart) {
    EXPECT_EQ(Names({Said(FoundBy::WsDiscovery, "b", "10.0.0.1"),
                     Said(FoundBy::WsDiscovery, "A", "10.0.0.1")}),
              "A b");
    EXPECT_EQ(
        Names({Said(FoundBy::NetBios, "A", "10.0.0.1"), Said(FoundBy::NetBios, "B", "10.0.0.2"),
               Said(FoundBy::DnsSd, "evil", "10.0.0.1"), Said(FoundBy::DnsSd, "evil", "10.0.0.2")}),
        "A B");
    Answer info = Said(FoundBy::DnsSd, "lamp", "10.0.0.7");
    info.sharesFiles = false;
    EXPECT_EQ(Names({info}), "") << "what only adds makes no computer";
}

TEST(MergeAnswersTest, AddressesOfOneComputerAreBounded) {
    Answers answers;
    for (int last = 0; last < 200; ++last)
        answers.insert(Said(FoundBy::DnsSd, "evil", "10.0.0." + QByteArray::number(last)));
    EXPECT_EQ(MergeAnswers(answers)[0].addresses.size(), 16);
}

} // namespace
} // namespace netrove

#include "redirector/RecentLists.h"

#include "fakes/Text.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

using namespace std::chrono_literals;

class RecentListsTest : public testing::Test {
protected:
    RecentLists::Clock::time_point now_;
    RecentLists recent_{[this] { return now_; }};

    /// The entries are numbered by their lengths.
    void Keep(const QString& folder, std::initializer_list<const char*> names) {
        SmbEntries entries;
        for (const char* name : names)
            entries.push_back({.name = Text(name), .length = qint64(entries.size())});
        Keep(folder, std::make_shared<const SmbEntries>(std::move(entries)));
    }
    void Keep(const QString& folder, SmbListing entries) {
        recent_.Keep(folder, {.entries = std::move(entries)}, RecentLists::OfFolders);
    }
    void KeepMany(const QString& folder, std::size_t count) {
        Keep(folder, std::make_shared<const SmbEntries>(count));
    }
    bool Has(const QString& folder) { return recent_.Find(folder) != nullptr; }

    const QString A = Text("A");
    const QString B = Text("B");
    const QString C = Text("C");
};

TEST_F(RecentListsTest, EntriesAreFoundByTheirExactNames) {
    Keep(A, {"case", "CASE", "e\u0301", "\u00e9"});
    Keep(B, {"case"});
    EXPECT_EQ(recent_.FindEntry(A, Text("CASE"))->length, 1);
    EXPECT_EQ(recent_.FindEntry(A, Text("\u00e9"))->length, 3);
    EXPECT_EQ(recent_.FindEntry(B, Text("case"))->length, 0);
    EXPECT_FALSE(recent_.FindEntry(A, Text("Case")) || recent_.FindEntry(C, Text("case")));
    Keep(A, {"new"});
    EXPECT_FALSE(recent_.FindEntry(A, Text("CASE"))) << "of the old listing";
}

TEST_F(RecentListsTest, UseKeepsAListingButNotForever) {
    Keep(A, {"A"});
    Keep(B, {"B"});
    const auto made = now_;
    now_ += RecentLists::OfFolders.rest;
    EXPECT_TRUE(recent_.FindEntry(A, A));
    now_ += 1s;
    EXPECT_FALSE(Has(B));
    for (; now_ <= made + RecentLists::OfFolders.most; now_ += RecentLists::OfFolders.rest)
        EXPECT_TRUE(Has(A));
    EXPECT_FALSE(Has(A));
}

TEST_F(RecentListsTest, MemoryIsBounded) {
    KeepMany(A, RecentLists::MaxEntries / 2);
    KeepMany(B, RecentLists::MaxEntries / 2);
    EXPECT_TRUE(Has(A)); // now used after B
    KeepMany(C, 1);
    EXPECT_TRUE(Has(A));
    EXPECT_FALSE(Has(B));
    KeepMany(C, RecentLists::MaxEntries + 1);
    EXPECT_FALSE(Has(C));
    EXPECT_TRUE(Has(A));
    KeepMany(B, RecentLists::MaxEntries);
    EXPECT_TRUE(Has(B));
    EXPECT_FALSE(Has(A));
}

} // namespace
} // namespace netrove

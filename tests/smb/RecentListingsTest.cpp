#include "redirector/RecentListings.h"

#include "fakes/Text.h"

#include <gtest/gtest.h>

namespace netrove {
namespace {

using namespace std::chrono_literals;

class RecentListingsTest : public testing::Test {
protected:
    RecentListings::Clock::time_point now_;
    RecentListings recent_{[this] { return now_; }};

    void Keep(const QString& folder, const QStringList& names) {
        SmbEntries entries;
        for (const QString& name : names)
            entries.push_back({.name = name, .length = qint64(entries.size())});
        recent_.Keep(folder, std::make_shared<const SmbEntries>(std::move(entries)));
    }

    void KeepMany(const QString& folder, std::size_t count) {
        recent_.Keep(folder, std::make_shared<const SmbEntries>(count));
    }

    bool Has(const QString& folder) { return recent_.Find(folder) != nullptr; }
};

const QString A = Text("A");
const QString B = Text("B");
const QString C = Text("C");

TEST_F(RecentListingsTest, EntriesAreFoundByTheirExactNames) {
    Keep(A, {Text("case"), Text("CASE"), Text("e\u0301"), Text("\u00e9")});
    Keep(B, {Text("case")});
    EXPECT_EQ(recent_.FindEntry(A, Text("CASE"))->length, 1);
    EXPECT_EQ(recent_.FindEntry(A, Text("\u00e9"))->length, 3);
    EXPECT_EQ(recent_.FindEntry(B, Text("case"))->length, 0);
    EXPECT_FALSE(recent_.FindEntry(A, Text("Case")));
    EXPECT_FALSE(recent_.FindEntry(C, Text("case")));
    // A new listing takes the place of the old one, its names too.
    Keep(A, {Text("new")});
    EXPECT_FALSE(recent_.FindEntry(A, Text("CASE")));
    EXPECT_TRUE(recent_.FindEntry(A, Text("new")));
}

TEST_F(RecentListingsTest, UseKeepsAListingButNotForever) {
    Keep(A, {A});
    Keep(B, {B});
    now_ += RecentListings::Rest;
    EXPECT_TRUE(Has(A));
    now_ += 1s;
    EXPECT_TRUE(recent_.FindEntry(A, A));
    EXPECT_FALSE(Has(B));
    const auto made = now_ - RecentListings::Rest - 1s;
    while (now_ < made + RecentListings::MaxAge) {
        EXPECT_TRUE(Has(A));
        now_ += 1s;
    }
    now_ += 1s;
    EXPECT_FALSE(Has(A));
}

TEST_F(RecentListingsTest, MemoryIsBounded) {
    KeepMany(A, RecentListings::MaxEntries / 2);
    KeepMany(B, RecentListings::MaxEntries / 2);
    EXPECT_TRUE(Has(A)); // now used after B
    KeepMany(C, 1);
    EXPECT_TRUE(Has(A));
    EXPECT_FALSE(Has(B));
    KeepMany(C, RecentListings::MaxEntries + 1);
    EXPECT_FALSE(Has(C));
    EXPECT_TRUE(Has(A));
    KeepMany(B, RecentListings::MaxEntries);
    EXPECT_TRUE(Has(B));
    EXPECT_FALSE(Has(A));
}

} // namespace
} // namespace netrove

#include "dictionary/Lookup.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

TEST(MatchRule, FollowsTheMode)
{
    const struct {
        int mode;
        std::string_view phrase, signs;
        bool matches;
    } kCases[] = {
        {1, "a01", "a01", true},
        {1, "a01", "a01b02", false},
        {1, "a01b02", "a01", false},
        {1, "a01", "A01", false},
        {3, "b02", "b02", true},
        {3, "b02", "a01b02c03", true},
        {3, "b02c03", "a01b02", false},
        {3, "a01a01b02", "a01a01a01b02", true},  // the match begins inside a false start
        {3, "b02", "B02", false},
        {4, "a01", "a01b02", true},
        {4, "a01b02", "a01b02", true},
        {4, "a01b02", "a01", false},
        {4, "b02", "a01b02", false},
        {5, "b02", "a01b02", true},
        {5, "a01b02", "b02", false},
        {5, "a01", "a01b02", false},
        {6, "p47", "", true},  // alone it stands for every entry
        {6, "p47", "a01b02", true},
        {6, "a01p47", "a01", true},  // no missing sign at all
        {6, "a01p47", "a01b02c03", true},
        {6, "a01p47", "b02a01", false},
        {6, "p47c03", "a01b02c03", true},
        {6, "a01p47c03", "a01c03", true},
        {6, "a01p47c03", "a01b02b02c03", true},
        {6, "a01p47c03", "a01", false},
        {6, "a01p47a01", "a01", true},  // before and after may overlap
        {6, "a01b02p47b02c03", "a01b02c03", true},
        {6, "a01b02p47", "a01", false},           // what stands before is longer than the entry
        {6, "a01p47b02p47", "a01c03b02", false},  // only the first one is a wildcard
        {6, "a01p47b02p47", "a01c03b02p47", true},
        {6, "a01", "a01", false},  // no missing sign: nothing matches
    };
    for (const auto& [mode, phrase, signs, matches] : kCases) {
        EXPECT_EQ(MatchRule(static_cast<Mode>(mode), phrase).matches(signs), matches)
            << mode << " " << phrase << " in " << signs;
    }
}

TEST(Lookup, TellsHowFarItHasComeAndCanBeStopped)
{
    std::string file;
    for (int i = 0; i < 20000; ++i) {
        file += testing::record("a01", "voce " + std::to_string(i));
    }
    std::vector<std::uint64_t> told;
    auto watched = std::make_unique<WatchedSource>(std::make_unique<TextSource>(file),
                                                   [&](std::uint64_t done, std::uint64_t all) {
                                                       EXPECT_EQ(all, file.size());
                                                       told.push_back(done);
                                                       return told.size() < 5;
                                                   });
    RecordReader reader(std::move(watched), 4096);
    Lookup lookup(reader, MatchRule(Mode::Contains, "zz9"));
    EXPECT_THROW((void)lookup.next(), ReadingStopped);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_GT(told.back(), 12'000U);
    EXPECT_LE(told.back(), 16'384U);
    EXPECT_TRUE(reader.last());
}

}  // namespace
}  // namespace karvel

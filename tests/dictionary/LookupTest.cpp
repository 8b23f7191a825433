#include "dictionary/Lookup.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "dictionary/EntryCount.hpp"
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
        {6, "a01", "a01", false},       // no missing sign: nothing matches
        {2, "b02", "a01b02c03", true},  // what is no mode searches like 3
        {0, "b02", "a01b02c03", true},
        {7, "b02", "a01b02c03", true},
        {255, "b02", "a01", false},
    };
    for (const auto& [mode, phrase, signs, matches] : kCases) {
        EXPECT_EQ(MatchRule(static_cast<std::uint8_t>(mode), phrase).matches(signs), matches)
            << mode << " " << phrase << " in " << signs;
    }
}

/// Any sequence of texts as records in the forms that people's files have.
std::string written(const std::vector<DictionaryEntry>& entries, std::mt19937& random)
{
    static constexpr std::string_view kEnds[] = {"\r\n", "\r\n", "\r\n", "\n", "\r", ",", " , "};
    std::string file;
    for (const DictionaryEntry& entry : entries) {
        for (const std::string* const text :
             {&entry.signs, &entry.translation, &entry.transliteration, &entry.note}) {
            const bool bare =
                !text->empty() && text->find_first_of(" ,") == std::string::npos && random() % 8 == 0;
            file += bare ? *text : "\"" + *text + "\"";
            file += kEnds[random() % (random() % 4 == 0 ? std::size(kEnds) : 3)];
        }
    }
    return file;
}

/// Enough entries to fill several windows of the reader, in a file of any form.
class LongFile : public ::testing::Test {
  protected:
    LongFile()
    {
        for (int i = 0; i < 20000; ++i) {
            const std::string signs = i % 7919 == 5 ? "p01p02" : "a01b" + std::to_string(10 + i % 44);
            entries.push_back({signs, "voce, " + std::to_string(i), std::string(random() % 40, 'x'),
                               random() % 3 == 0 ? "nota" : ""});
        }
        entries[9].note = "p01p02";  // a text that looks like signs is none
    }

    std::mt19937 random{7};
    std::vector<DictionaryEntry> entries;
};

TEST_F(LongFile, IsReadRecordByRecord)
{
    const std::string file = written(entries, random);
    ASSERT_GT(file.size(), 3 * FieldReader::kWindow);
    RecordReader reader(std::make_unique<TextSource>(file));
    EXPECT_EQ(reader.last(), std::nullopt);
    for (const DictionaryEntry& entry : entries) {
        ASSERT_TRUE(reader.next());
        ASSERT_EQ(reader.record().decoded(), entry);
        ASSERT_EQ(reader.last(), entry);
    }
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(reader.last(), entries.back());
}

TEST_F(LongFile, IsSearchedWithoutMissingAMatch)
{
    constexpr unsigned kUnskimmed = 99;
    std::string usual;
    for (const DictionaryEntry& entry : entries) {
        usual += testing::record(entry.signs, entry.translation, entry.transliteration, entry.note);
    }
    const std::string cut = usual + "\"a01\"\r\n";
    const std::string mixed = written(entries, random);
    for (const auto& [mode, phrase] :
         {std::pair{3, "p01"}, std::pair{1, "p01p02"}, std::pair{4, "a01b"}, std::pair{5, "b20"},
          std::pair{6, "p01p47"}, std::pair{6, "p47"}, std::pair{6, "p01"}, std::pair{3, "c01"}}) {
        const MatchRule rule(static_cast<std::uint8_t>(mode), phrase);
        for (const auto& [file, helpers] : {std::pair{&std::as_const(usual), 3U},
                                            {&usual, 0U},
                                            {&mixed, 1U},
                                            {&cut, 2U},
                                            {&cut, kUnskimmed}}) {
            SCOPED_TRACE(std::to_string(mode) + " " + phrase + " " + std::to_string(helpers));
            const SkimShape shape{.least = helpers == kUnskimmed ? usual.size() * 2 : 0, .helpers = helpers};
            RecordReader reader(std::make_unique<TextSource>(*file), FieldReader::kWindow, shape);
            Lookup lookup(reader, rule);
            for (const DictionaryEntry& entry : entries) {
                if (rule.matches(entry.signs)) {
                    ASSERT_TRUE(lookup.next());
                    ASSERT_EQ(reader.record().decoded(), entry);
                }
            }
            if (file == &cut) {
                EXPECT_THROW(lookup.next(), RuntimeError);
            } else {
                EXPECT_FALSE(lookup.next());
            }
            EXPECT_EQ(reader.last(), entries.back());
        }
    }
}

TEST_F(LongFile, TellsHowFarASearchHasComeAndLetsItBeStopped)
{
    std::string file;
    for (const DictionaryEntry& entry : entries) {
        file += testing::record(entry.signs, entry.translation, entry.transliteration, entry.note);
    }
    std::vector<std::uint64_t> told;
    auto watched = std::make_unique<WatchedSource>(std::make_unique<TextSource>(file),
                                                   [&told](std::uint64_t done, std::uint64_t /*all*/) {
                                                       told.push_back(done);
                                                       return told.size() < 5;
                                                   });
    RecordReader reader(std::move(watched), 4096, {.least = 0, .region = 1024, .helpers = 1});
    Lookup lookup(reader, MatchRule(3, "zz9"));
    EXPECT_THROW((void)lookup.next(), ReadingStopped);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_GT(told.back(), 100'000U);
    EXPECT_LT(told.back(), file.size());
}

TEST(RecordReader, TellsTheEndFromACut)
{
    const std::string whole = testing::record("a01", "uno") + testing::record("b02", "due");
    const struct {
        std::string_view tail;
        bool cut;
    } kCases[] = {
        {"", false},
        {"\r\n \n\r  ", false},  // blanks and line ends behind the last record are none
        {"\"c03\"\r\n", true},
        {"\"c03\",\"tre\",\"\"", true},
        {"\"c03\",\"tre\",\"\",\"mai chiusa", true},
        {"\r\n\"c03\",\"tre\"\r\n", true},  // an empty line before a record is a field of it
    };
    for (const auto& [tail, cut] : kCases) {
        const std::string file = whole + std::string(tail);
        RecordReader reader(std::make_unique<TextSource>(file));
        EXPECT_TRUE(reader.next());
        EXPECT_TRUE(reader.next());
        if (cut) {
            EXPECT_THROW(reader.next(), RuntimeError) << tail;
        } else {
            EXPECT_FALSE(reader.next()) << tail;
        }
        EXPECT_EQ(reader.last()->translation, "due");
    }
}

TEST(EntryCount, CountsOneForFiveFields)
{
    const std::string one = testing::record("a01", "uno, due");
    const struct {
        std::string file;
        int entries, error;
    } kCases[] = {
        {"", 0, 0},
        {one, 1, 62},                         // four fields: the fifth is missing
        {one + one + one + one + one, 4, 0},  // twenty fields
        {one + "\"x\"\r\n", 1, 0},
        {one + "\r\n", 1, 0},  // here an empty line is a field as good as any
        {one + "\"x", 1, 62},
        {one + one, 2, 62},
    };
    for (const auto& [file, entries, error] : kCases) {
        TextSource source(file);
        const EntryCount count = countEntries(source);
        EXPECT_EQ(count.entries, entries) << file;
        EXPECT_EQ(count.failure ? count.failure->value() : 0, error) << file;
    }
}

}  // namespace
}  // namespace karvel

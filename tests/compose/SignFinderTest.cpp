#include "compose/SignFinder.hpp"

#include <gtest/gtest.h>

#include "text/PhraseText.hpp"

namespace karvel {
namespace {

std::string firstFor(const SignFinder& finder, std::string_view wanted)
{
    const auto found = finder.find(wanted);
    return found.empty() ? "(none)" : std::string(found.front()->gardiner);
}

TEST(SignFinder, PutsWhatAPersonMeansFirst)
{
    const SignFinder finder;
    const struct {
        std::string_view wanted;
        std::string_view gardiner;
    } cases[] = {
        {"G17", "G17"},       {"g99", "(none)"},  {"aa15", "Aa15"},   {"Aa1", "Aa1"},
        {"aa1", "Aa1"},       {"e16", "G17"},     {"E16", "E16"},     {"m", "G17"},
        {"nfr", "F35"},       {"civetta", "G17"}, {"gufo", "G17"},    {"croce ansata", "S34"},
        {" CIVETTA ", "G17"}, {"ḥ", "V28"},       {"h", "O4"},        {"ḏ", "I10"},
        {"anx", "S34"},       {"ꜥnḫ", "S34"},     {"zzzz", "(none)"}, {"", "(none)"},
        {"   ", "(none)"},    {"Hr", "D2"},       {"mn", "Y5"},       {"100", "V1"},
        {"falco", "G5"},      {"horus", "G5"},    {"ankh", "S34"},    {"G 17", "G17"},
        {"aa 1", "Aa1"},
    };
    for (const auto& [wanted, gardiner] : cases) {
        EXPECT_EQ(gardiner, firstFor(finder, wanted)) << wanted;
    }
}

TEST(SignFinder, IgnoresAccentsAndFindsBeginningsOfWords)
{
    const SignRepertoire repertoire(
        "header\nb01\tU+13050\tB1\tla città antica\t\nb02\tU+13051\tB2\tcittadino\tkmt\n");
    const SignFinder finder(repertoire);
    ASSERT_EQ(2U, finder.find("citta").size());
    EXPECT_EQ("b01", finder.find("CITTÀ").front()->code);  // the whole word before the beginning of one
    EXPECT_EQ("b02", finder.find("km").front()->code);
    EXPECT_TRUE(finder.find("mt").empty());
}

TEST(SignFinder, OrdersByDescriptionThenPlaceOfTheValueThenUses)
{
    const SignRepertoire repertoire(
        "header\nb01\tU+13050\tB1\tcane\tp/q/re\nb02\tU+13051\tB2\tgatto\tre\nb03\tU+13052\tB3\tlupo\tre\n"
        "b04\tU+13053\tB4\tre (del nord)\t\nb05\tU+13054\tB5\tre\t\nb06\tU+13055\tB6\til re\t\n",
        "b01\t900\nb03\t20\nb02\t3\nb06\t999\n");
    std::string order;
    for (const SignInfo* const sign : SignFinder(repertoire).find("re")) {
        order += std::string(sign->gardiner) + " ";
    }
    EXPECT_EQ(order, "B5 B4 B3 B2 B1 B6 ");
}

TEST(SignFinder, TheHomophoneUsedLastComesFirst)
{
    SignFinder finder;
    const auto before = finder.find("m");
    ASSERT_GT(before.size(), 2U);
    const std::string second(before[1]->code);
    finder.used(std::string(before[0]->code));
    finder.used(second);
    EXPECT_EQ(second, finder.find("m").front()->code);
    EXPECT_EQ(before[0]->code, finder.find("m")[1]->code);
}

TEST(PhraseText, LeavesAndComesBack)
{
    const std::string codes = "d51f21b47";
    EXPECT_EQ("F35-I9-D21", gardinerOf(codes));
    EXPECT_EQ("𓄤𓆑𓂋", unicodeOf(codes));
    EXPECT_EQ("?-F35", gardinerOf("p47d51"));
    const std::vector<std::string> expected = {"d51", "f21", "b47"};
    const struct {
        std::string_view text;
        std::vector<std::string> unknown;
    } cases[] = {
        {"𓄤𓆑𓂋", {}},         {"F35-I9-D21", {}}, {"F35:I9*D21", {}},    {"d51f21b47", {}},
        {"F35 i9\nD21", {}}, {"d51 𓆑-D21", {}},  {"𓄤\U00013430𓆑𓂋", {}}, {"F35-X-I9-Q99-D21-X", {"X", "Q99"}},
    };
    for (const auto& [text, unknown] : cases) {
        const ReadPhrase read = readPhrase(text);
        EXPECT_EQ(expected, read.codes) << text;
        EXPECT_EQ(unknown, read.unknown) << text;
    }
    EXPECT_EQ(std::vector<std::string>{"p47"}, readPhrase("p47").codes);
    EXPECT_TRUE(readPhrase(" -:* ").codes.empty());
}

}  // namespace
}  // namespace karvel

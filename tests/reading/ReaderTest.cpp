#include "reading/Reader.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::record;

constexpr const char* kModel =
    "karvel-lettura 2\n"
    "parole 5\nDd\t1\t60\nn\t2\t90\npr\t3\t40\nn.i\t2\t30\nHtp\t0\t9\n"
    "grafie 6\nf22c18\t1\t50\nf22c18h11\t1\t10\nh11\t2\t90\nh18o35\t3\t40\nh11\t4\t30\na01b02c03d04\t5\t9\n"
    "coppie 5\n0\t1\t50\n1\t2\t50\n2\t3\t20\n3\t4\t30\n4\t3\t20\n"
    "terne 1\n0\t1\t2\t40\n"
    "modifiche 2\nfine\to36\t\t20\naltro\te01\td04\t5\n";

class Reading : public ::testing::Test {
  protected:
    Reading()
    {
        drive_.write(
            kDictionaryPath,
            record("f22c18", "dire", "Dd", "verbo") + record("h11", "a, per", "n", "preposizione") +
                record("h11", "di", "n.i", "aggettivo") + record("h18o35", "casa", "pr", "sostantivo") +
                record("h18o35", "tempio", "pr", "sostantivo") + record("b02b03", "acqua", "", "mia") +
                record("h18", "pianta di casa", "pr", "segno O1") +
                record("h18o35", "dimora", "xx", "sostantivo; rinvio"));
        drive_.write(kModelPath, kModel);
    }

    /// "begin+length translation(transliteration)" of every word; "!" before what is no word, "*" after what
    /// is fixed.
    [[nodiscard]] std::string read(std::string_view codes, std::span<const FixedWord> fixed = {})
    {
        std::string text;
        const Reader reader(drive_.files());
        for (const ReadWord& word : reader.read(codes, fixed)) {
            text += text.empty() ? "" : " ";
            text += std::to_string(word.begin) + "+" + std::to_string(word.length) +
                    (word.known ? " " : " !") + word.choice.translation + "(" + word.choice.transliteration +
                    ")" + (word.fixed ? "*" : "");
        }
        return text;
    }

    testing::TemporaryDrive drive_;
};

TEST_F(Reading, CutsAndNamesTheWords)
{
    const struct {
        const char* codes;
        const char* words;
    } cases[] = {
        {"", ""},
        {"f22c18h11h18o35", "0+2 dire(Dd) 2+1 a, per(n) 3+2 casa(pr)"},     // not the longest match
        {"h18o35h11h18o35", "0+2 casa(pr) 2+1 di(n.i) 3+2 casa(pr)"},       // what stands before decides
        {"f22c18h11h18o35o36", "0+2 dire(Dd) 2+1 a, per(n) 3+3 casa(pr)"},  // an ending is tolerated
        {"a01b02c03e01", "0+4 (Htp)"},                                      // so is another sign; no entry
        {"a01c03b02d04", "0+4 (Htp)"},                                      // a sign in another place
        {"h18o35o36o36", "0+4 casa(pr)"},                                   // two more
        {"b50b51b50b51", "0+4 !(spt/spty/spt/spty)"},                       // neighbours that are no word
        {"f22c18b02b03", "0+2 dire(Dd) 2+2 acqua()"},  // the user's, without transliteration
    };
    for (const auto& [codes, words] : cases) {
        EXPECT_EQ(read(codes), words) << codes;
    }
}

TEST_F(Reading, StandsOnWhatWasFixedByHand)
{
    const ReadingChoice of{"n.i", "di", "aggettivo"};
    const ReadingChoice odd{"qq", "mio", "a mano"};
    const struct {
        std::vector<FixedWord> fixed;
        const char* words;
    } cases[] = {
        {{{0, 3, {}}}, "0+3 dire(Dd)* 3+2 casa(pr)"},
        {{{2, 1, of}}, "0+2 dire(Dd) 2+1 di(n.i)* 3+2 casa(pr)"},
        {{{3, 2, {}}, {2, 1, odd}}, "0+2 dire(Dd) 2+1 mio(qq)* 3+2 casa(pr)*"},
        {{{0, 2, of}}, "0+2 di(n.i)* 2+1 a, per(n) 3+2 casa(pr)"},  // for signs that never write it
        {{{2, 3, of}, {3, 2, {}}, {4, 2, {}}, {9, 1, {}}, {0, 0, {}}}, "0+2 dire(Dd) 2+3 di(n.i)*"},
    };
    for (const auto& [fixed, words] : cases) {
        EXPECT_EQ(read("f22c18h11h18o35", fixed), words);
    }
}

TEST_F(Reading, OffersOtherWordsAndOtherMeanings)
{
    const Reader reader(drive_.files());
    const auto words = reader.read("f22c18h11h18o35");
    ASSERT_EQ(words.size(), 3U);
    ASSERT_EQ(words[1].alternatives.size(), 1U);
    EXPECT_EQ(words[1].alternatives[0].translation, "di");
    EXPECT_EQ(words[1].alternatives[0].note, "aggettivo");
    EXPECT_LT(words[1].alternatives[0].confidence, words[1].choice.confidence);
    EXPECT_LE(words[1].choice.confidence, 1.0F);
    ASSERT_FALSE(words[2].alternatives.empty());
    EXPECT_EQ(words[2].alternatives[0].translation, "tempio");
}

TEST_F(Reading, WorksFromTheDictionaryWithoutAUsableModel)
{
    const std::string model = kModel;
    std::vector<std::string> damaged = {"", "karvel-lettura 1\n" + model.substr(17), model + "x"};
    for (std::size_t length = 1; length < model.size(); length += 7) {
        damaged.push_back(model.substr(0, length));
    }
    const std::pair<const char*, const char*> faults[] = {
        {"parole 5", "parole 4000000000"}, {"f22c18\t1", "f22c18\t6"}, {"f22c18\t1", "f22\xFF\t1"},
        {"0\t1\t50", "6\t1\t50"},          {"fine", "fuori"},          {"60\n", "-60\n"},
        {"fine\to36", "fine\t"},           {"e01\td04", "e01\td4"},    {"Dd\t1", "Dd\t64"}};
    for (const auto& [from, to] : faults) {
        std::string bad = model;
        bad.replace(bad.find(from), std::string_view(from).size(), to);
        damaged.push_back(bad);
    }
    for (const std::string& bytes : damaged) {
        drive_.write(kModelPath, bytes);
        EXPECT_NE(Reader(drive_.files()).warning(), "") << bytes;
    }
    EXPECT_EQ(read("f22c18h18o35"), "0+2 dire(Dd) 2+2 casa(pr)");
    drive_.write(kModelPath, model);
    EXPECT_EQ(Reader(drive_.files()).warning(), "");
}

TEST_F(Reading, TakesPassagesOfAnyLength)
{
    std::string codes;
    for (int i = 0; i < 2000; ++i) {
        codes += "f22c18h11h18o35p47";
    }
    const auto words = Reader(drive_.files()).read(codes);
    std::size_t at = 0;
    for (const ReadWord& word : words) {
        EXPECT_EQ(word.begin, at);
        at += word.length;
    }
    EXPECT_EQ(at, 12000U);
    EXPECT_GE(words.size(), 6000U);
}

}  // namespace
}  // namespace karvel

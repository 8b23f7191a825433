#include "dictionary/WordFinder.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"
#include "text/Transliteration.hpp"

namespace karvel {
namespace {

using testing::record;

/// nfr is d51 f21 b47 (F35 I9 D21).
std::string dictionary()
{
    return record("d51f21b47", "buono, bello, perfetto", "nfr") + record("d51f21b47", "bene", "nfr") +
           record("d51", "buono, bello, perfetto", "nfr") + record("b47d51", "fare (di re)", "iri") +
           record("a01", "figlio del re", "zA-nswt") + record("a02", "re, re dell'Alto Egitto", "nswt, nsw") +
           record("a03", "re", "bi.ti") + record("a04", "dietro", "HA") + record("a05", "oh!", "hA") +
           record("a06", "città, perché", "niw.t") + record("a07", "vita", "anx");
}

class Finding : public ::testing::Test {
  protected:
    void SetUp() override { drive.write(kDictionaryPath, dictionary()); }

    /// "kind: TRANSLITERATION=TRANSLATION; ..." of the words in their order.
    std::string asked(std::string_view text, std::optional<QuestionKind> kind = {})
    {
        const auto search = finder.search(text, kind);
        search->readAll();
        return told(*search);
    }

    static std::string told(const WordFinder::Search& search)
    {
        std::string told = std::string(nameOf(search.kind())) + ":";
        const Answers answers = search.answers();
        for (std::size_t line = 0; line < answers.words(); ++line) {
            const Answers::Word& word = answers.word(line);
            told += " " + answers.best(word).entry->translation + "/" +
                    std::to_string(word.spellings.size()) + ";";
        }
        return told + (search.failure() ? " error" : "");
    }

    testing::TemporaryDrive drive;
    WordFinder finder{drive.files()};
};

TEST_F(Finding, RanksTheAnswersOfEachKind)
{
    const struct {
        std::string_view text, answer;
    } cases[] = {
        // A translation that is the word, the word alone as a sense, the word among others, in a remark.
        {"re", "italiano: re/1; re, re dell'Alto Egitto/1; figlio del re/1; fare (di re)/1;"},
        {"BELLO", "italiano: buono, bello, perfetto/2;"},
        {"citta", "italiano: città, perché/1;"},
        {"perche", "italiano: città, perché/1;"},
        {"re figlio", "italiano: figlio del re/1;"},  // all words, in any order
        {"re casa", "italiano:"},
        {"egit", "italiano: re, re dell'Alto Egitto/1;"},
        {"fett", "italiano: buono, bello, perfetto/2;"},
        {"nfr", "traslitterazione: buono, bello, perfetto/2; bene/1;"},
        {"nsw", "traslitterazione: re, re dell'Alto Egitto/1; figlio del re/1;"},
        {"sA nswt", "traslitterazione: figlio del re/1;"},  // z is s, marks do not count
        {"ꜥnḫ", "traslitterazione: vita/1;"},
        {"h\xCC\xA3\xEA\x9C\xA3", "traslitterazione: dietro/1; oh!/1;"},  // a letter and its mark
        {"HA", "traslitterazione: dietro/1; oh!/1;"},
        {"hA", "traslitterazione: oh!/1; dietro/1;"},  // exact letters first
        {"bjtj", "traslitterazione: re/1;"},
        {"n?r", "traslitterazione: buono, bello, perfetto/2; bene/1;"},
        {"*tj", "traslitterazione: re/1;"},
        {"F35 I9", "segni: buono, bello, perfetto/1; bene/1;"},
        {"D21 + F35", "segni: buono, bello, perfetto/1; bene/1; fare (di re)/1;"},
        {"F35 + F35", "segni:"},
        {"\xF0\x93\x84\xA4", "segni: buono, bello, perfetto/2; bene/1; fare (di re)/1;"},
        {" ", "italiano:"},
    };
    for (const auto& [text, answer] : cases) {
        EXPECT_EQ(asked(text), answer) << text;
    }
    EXPECT_EQ(asked("re", QuestionKind::Transliteration), "traslitterazione:");
}

TEST_F(Finding, FollowsTheFileAndKeepsWhatStandsBeforeAFault)
{
    EXPECT_EQ(asked("vita"), "italiano: vita/1;");
    drive.write(kDictionaryPath, dictionary() + record("a08", "vita lunga", "anx-w") + "\"a09\"\r\n");
    EXPECT_EQ(asked("vita"), "italiano: vita/1; vita lunga/1; error");
}

/// Between two pieces anything may be shown and another question asked.
TEST_F(Finding, GoesOnPieceByPiece)
{
    drive.write(kDictionaryPath, dictionary() + record("a08", "vita lunga", "anx-w"));
    const auto pause = [] { return true; };
    for (const std::size_t most :
         {WordFinder::kMost, std::size_t{3}}) {  // kept; read from the file each time
        WordFinder pieces(drive.files(), kDictionaryPath, most);
        const auto first = pieces.search("vita");
        // A dictionary that turns out to be too large is read again from its beginning.
        for (std::size_t record = 0; record < 11 + most % WordFinder::kMost; ++record) {
            EXPECT_TRUE(first->read(pause));
        }
        EXPECT_EQ(told(*first), "italiano: vita/1;");
        WordFinder others(drive.files(), kDictionaryPath, most);
        const auto early = others.search("nfr");  // its answers stand before the limit
        early->readAll();
        EXPECT_EQ(told(*early), "traslitterazione: buono, bello, perfetto/2; bene/1;");
        const auto second = pieces.search("re, figlio");
        EXPECT_TRUE(second->read(pause));
        second->readAll();
        EXPECT_EQ(told(*second), "italiano: figlio del re/1;");
        EXPECT_TRUE(first->read(pause));
        EXPECT_EQ(told(*first), "italiano: vita/1; vita lunga/1;");
        EXPECT_FALSE(first->read(pause));
    }
    drive.files().remove(kDictionaryPath);
    EXPECT_EQ(asked("vita"), "italiano: error");
}

/// The signs of an answer, those that are marked in capitals.
std::string marked(const Answers& answers, const Answer& answer)
{
    std::string signs = answer.entry->signs;
    const std::vector<bool> marks = answers.marks().of(signs);
    for (std::size_t sign = 0; sign < marks.size(); ++sign) {
        if (marks[sign]) {
            signs[3 * sign] = static_cast<char>(signs[3 * sign] - 'a' + 'A');
        }
    }
    return signs;
}

/// The entries of a small dictionary that match, as `marked` tells them.
std::string matches(Mode mode, std::string_view phrase)
{
    const std::string file =
        record("f21d51f21", "1") + record("d51f21", "2") + record("f21", "3") + record("f21b47", "4");
    RecordReader reader(std::make_unique<TextSource>(file));
    std::vector<Answer> found;
    PhraseMatches matches(reader, mode, phrase);
    while (matches.step(found)) {
    }
    const Answers answers(found, matches.marks());
    std::string told;
    for (const Answer& answer : answers.all()) {
        told += marked(answers, answer) + " ";
    }
    return told;
}

TEST(Answers, MarkTheSignsThatMatched)
{
    EXPECT_EQ(matches(Mode::Equal, "f21"), "F21 ");
    EXPECT_EQ(matches(Mode::Contains, "f21"), "F21d51F21 d51F21 F21 F21b47 ");
    EXPECT_EQ(matches(Mode::StartsWith, "f21"), "F21d51f21 F21 F21b47 ");
    EXPECT_EQ(matches(Mode::EndsWith, "f21"), "f21d51F21 d51F21 F21 ");
    EXPECT_EQ(matches(Mode::MissingSign, "f21p47b47"), "F21B47 ");
}

TEST_F(Finding, MarksSignsThatWereAskedForInAnyOrder)
{
    const auto search = finder.search("D21 + F35");
    search->readAll();
    const Answers answers = search->answers();
    EXPECT_EQ(marked(answers, answers.all().front()), "D51f21B47");
    EXPECT_EQ(marked(answers, answers.all().back()), "B47D51");
}

TEST(Answers, AreFoldedAndRanked)
{
    const std::string file = dictionary() + record("f21d51f21", "x", "x");
    RecordReader reader(std::make_unique<TextSource>(file));
    std::vector<Answer> found;
    PhraseMatches matches(reader, Mode::Contains, "f21");
    while (matches.step(found)) {
    }
    Answers answers(found);
    EXPECT_EQ(answers.counts(), "3 parole, 3 voci");
    EXPECT_EQ(answers.best(answers.word(0)).entry->translation, "x");  // begins with the phrase
    answers.sort(Answers::Order::FileOrder);
    EXPECT_EQ(answers.best(answers.word(2)).entry->translation, "x");
}

TEST(Transliteration, IsPrintedWithMarksWhereItIsOne)
{
    EXPECT_EQ(printedTransliteration("Htp-di-nswt, sDAw"), "ḥtp-di-nswt, sḏꜣw");
    EXPECT_EQ(printedTransliteration("preposizione Aa"), "preposizione Aa");
    EXPECT_EQ(asciiWords("ꜥnḫ, ḏd=f vita dell’ꜣ s\xCC\x8Cw’"), "anx, Dd=f vita dell’ꜣ Swi");
    EXPECT_EQ(asciiTransliteration("ḥtp=f Ꜥḥꜥ s\xCC\x8Cw"), "Htp=f aHa Sw");
}

}  // namespace
}  // namespace karvel

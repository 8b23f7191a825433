#include "app/EntryList.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::record;

/// "heading | TRANSLATION ... | rest" and "!" for a fault.
std::string told(const EntryList& list)
{
    const Answers answers = list.answers();
    std::string text = list.heading(answers) + " |";
    for (std::size_t line = 0; line < answers.words(); ++line) {
        text += " " + answers.best(answers.word(line)).entry->translation;
    }
    return text + " | " + list.rest() + (list.failure() ? "!" : "");
}

TEST(EntryList, HasTheAnswersOfTheSearchInEachMode)
{
    const std::string whole = record("a01a02", "due") + record("a01", "uno", "w") +
                              record("a01a03", "uno", "w") + record("a03a01", "altro");
    const struct {
        Mode mode;
        std::string_view phrase;
        std::string dictionary, list;
    } cases[] = {
        {Mode::Contains, "a01", whole, "A1 · Cerca simile · 3 parole, 4 voci | uno due altro | "},
        {Mode::Equal, "a01", whole, "A1 · Termine presente · 1 parola, 1 voce | uno | "},
        {Mode::Split, "a01a02a03a01a05", whole,
         "A1-A2-A3-A1-A5 · Dividi in parole · 2 parole, 2 voci | due altro | a05"},
        {Mode::Split, "a01a02a03a01a01a02", whole,
         "A1-A2-A3-A1-A1-A2 · Dividi in parole · 3 parole, 3 voci | due altro due | "},
        {Mode::Split, "a01a02a05", whole + "a01,\"x",
         "A1-A2-A5 · Dividi in parole · 0 parole, 0 voci | | a01a02a05!"},
        {Mode::Contains, "a01", whole + "a01,\"x",
         "A1 · Cerca simile · 3 parole, 4 voci | uno due altro | !"},
        {Mode::Contains, "a05", whole, "A5 · Cerca simile · 0 parole, 0 voci | | "},
    };
    for (const auto& [mode, phrase, dictionary, list] : cases) {
        testing::TemporaryDrive drive;
        drive.write(kDictionaryPath, dictionary);
        EntryList asked(drive.files(), mode, phrase);
        asked.readAll();
        EXPECT_EQ(told(asked), list);
    }
}

TEST(EntryList, KnowsTheRestAtTheEndOnly)
{
    testing::TemporaryDrive drive;
    drive.write(kDictionaryPath, record("a01", "uno"));
    EntryList asked(drive.files(), Mode::Split, "a01a02a03a04");
    EXPECT_TRUE(asked.read([] { return true; }));  // a02 has not been asked yet
    EXPECT_EQ(asked.rest(), "");
    EXPECT_EQ(asked.percent(), 25);
}

TEST(EntryList, IsWrittenForOtherPrograms)
{
    const Answers answers({{.entry = std::make_shared<DictionaryEntry>(
                                DictionaryEntry{"d51", "\"buono\" <a> & b", "nfr-HA", "n;1"})}});
    EXPECT_EQ(asCsv(answers).substr(3),
              "Gardiner;Geroglifici;Traduzione;Traslitterazione;Nota\r\n"
              "\"F35\";\"𓄤\";\"\"\"buono\"\" <a> & b\";\"nfr-ḥꜣ\";\"n;1\"\r\n");
    EXPECT_NE(asHtml(answers, "<titolo>")
                  .find("<tr><td title=\"F35\">𓄤</td><td>&quot;buono&quot; &lt;a&gt; "
                        "&amp; b</td><td><i>nfr-ḥꜣ</i></td><td>n;1</td></tr>"),
              std::string::npos);
    EXPECT_NE(asHtml(answers, "<titolo>").find("<h1>&lt;titolo&gt;</h1>"), std::string::npos);
}

}  // namespace
}  // namespace karvel

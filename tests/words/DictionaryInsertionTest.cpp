#include "words/DictionaryInsertion.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "base/SignCode.hpp"
#include "dictionary/RecordReader.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

#if !defined(_WIN32)
#include <sys/resource.h>

#include <csignal>
#endif

namespace karvel {
namespace {

using End = DictionaryInsertion::End;
using testing::record;

const MessageBox kNothingTyped{
    .title = "ERRORE", .text = "NON HAI INSERITO NULLA !\n\nRIDIGITA IL TESTO", .icon = Icon::Critical};
const MessageBox kQuotes{
    .title = "ATTENZIONE",
    .text = "Non è possibile utilizzare le virgolette nella frase.\n\nSostituirle con parentesi.",
    .icon = Icon::Exclamation};
const MessageBox kKnown{.title = "ERRORE", .text = "Questa parola esiste già !"};
const MessageBox kNothingComposed{
    .title = "ERRORE", .text = "NON HAI SCRITTO NULLA !", .icon = Icon::Question};

MessageBox errorBox(int number, const std::string& text)
{
    return {.title = "ERRORE",
            .text = "C'e' un errore nel file dizio.txt ERR>" + std::to_string(number) + "\n" + text +
                    "\nCi sono caratteri in meno o in più nel file !",
            .icon = Icon::Critical};
}

class Insertion : public ::testing::Test {
  protected:
    void dictionary(const std::string& bytes) { drive_.write(kDictionaryPath, bytes); }
    [[nodiscard]] std::string dictionary() const { return drive_.read(kDictionaryPath); }

    End add(std::string_view codes, DictionaryInsertion::Texts texts)
    {
        return DictionaryInsertion(drive_.files(), ui_, last_).confirm(codes, std::move(texts));
    }

    [[nodiscard]] std::vector<DictionaryEntry> entries() const
    {
        std::vector<DictionaryEntry> all;
        RecordReader reader(drive_.files().open(kDictionaryPath));
        while (reader.next()) {
            all.push_back(reader.record().decoded());
        }
        return all;
    }

    testing::TemporaryDrive drive_;
    testing::ScriptedUi ui_;
    LastResult last_;
};

TEST_F(Insertion, RefusesInTheOrderOfTheFieldsAndWritesNothing)
{
    const std::string old = record("a01", "uomo", "s", "nota vecchia");
    const MessageBox lacking{.title = "ATTENZIONE",
                             .text = "Questi caratteri non possono essere scritti nel dizionario: ☺ꜣ",
                             .icon = Icon::Critical};
    struct Case {
        std::string codes;
        DictionaryInsertion::Texts texts;
        MessageBox box;
        End end;
    };
    const Case cases[] = {
        {"b02", {"", "\"", "\""}, kNothingTyped, End::Refused},  // only the first field must be filled
        {"b02", {"ca\"sa", "", ""}, kQuotes, End::Refused},
        {"b02", {"casa", "\"", ""}, kQuotes, End::Refused},
        {"b02", {"casa", "", "\""}, kQuotes, End::Refused},
        {"b02", {"casa ☺", "ꜣ", "☺ \""}, kQuotes, End::Refused},  // quotes before characters
        {"b02", {"casa ☺", "ꜣ", "☺"}, lacking, End::Refused},
        {"", {"casa", "", ""}, kNothingComposed, End::Refused},  // emptied while the dialog was open
        {"a\"2", {"casa", "", ""}, kQuotes, End::Refused},
        {"a01", {"altro", "", ""}, kKnown, End::Duplicate},
    };
    for (const Case& each : cases) {
        dictionary(old);
        ui_.expect(each.box);
        EXPECT_EQ(each.end, add(each.codes, each.texts)) << each.box.text;
        EXPECT_EQ(old, dictionary());
    }
    EXPECT_EQ("nota vecchia", last_.note);  // the search for a duplicate read it
    EXPECT_EQ("", last_.translation);
}

TEST_F(Insertion, AppendsFourQuotedLinesThatTheNextReadingFinds)
{
    const std::string old = record("a01p19", "uomo");
    struct Case {
        std::string before;
        std::string kept;  ///< what of it stands before the new record afterwards
    };
    const Case cases[] = {
        {"", ""},
        {old, old},
        {old.substr(0, old.size() - 2), old},  // without its last line end
        {"\"c03\",\"tre\",\"\",\"\"\n", "\"c03\",\"tre\",\"\",\"\"\n"},
        {"\"c03\",\"tre\",\"\",\"\"", "\"c03\",\"tre\",\"\",\"\"\r\n"},
        {old + "\r\n", old},  // blank lines would shift the fields of what follows
        {old + " \r\n\n  \r\n   ", old},
        {old + std::string(500, '\n'), old},  // more of them than the record is long
        {old + "   ", old},
        {"\"c03\",\"tre\",\"\",\"\"  ", "\"c03\",\"tre\",\"\",\"\"  \r\n"},
        {" \r\n\r\n", ""},
    };
    for (const Case& each : cases) {
        dictionary(each.before);
        const std::size_t before = entries().size();
        EXPECT_EQ(End::Written, add("a01", {"  La città, l'Àncora ", "", "*foto 1"}));
        std::string expected =
            each.kept + "\"a01\"\r\n\"  La citt\xE0, l'\xC0ncora \"\r\n\"\"\r\n\"*foto 1\"\r\n";
        EXPECT_EQ(expected, dictionary());
        ASSERT_EQ(before + 1, entries().size());
        EXPECT_EQ((DictionaryEntry{"a01", "  La città, l'Àncora ", "", "*foto 1"}), entries().back());
    }
}

TEST_F(Insertion, TurnsPastedLineEndsIntoBlanks)
{
    dictionary("");
    EXPECT_EQ(End::Written, add("a01", {"una\r\ndue", "tre\n\nquattro\r", "cinque\u2028sei"}));
    EXPECT_EQ((DictionaryEntry{"a01", "una due", "tre  quattro ", "cinque sei"}), entries().at(0));
}

TEST_F(Insertion, ReportsADictionaryThatCannotBeReadAndStaysOpen)
{
    ui_.expect(errorBox(53, "File non trovato"));
    EXPECT_EQ(End::Failed, add("a01", {"casa", "", ""}));
    EXPECT_EQ("(none)", dictionary());

    const std::string cut = record("b02", "due", "", "letta") + "\"c03\"\r\n\"tre";
    dictionary(cut);
    ui_.expect(errorBox(62, "Input oltre la fine del file"));
    EXPECT_EQ(End::Failed, add("a01", {"casa", "", ""}));
    EXPECT_EQ(cut, dictionary());
    EXPECT_EQ("letta", last_.note);
}

#if !defined(_WIN32)
TEST_F(Insertion, LeavesAFullDiskAsItWas)
{
    const std::string old = record("b02", "due") + "\r\n \r\n";
    dictionary(old);
    rlimit before{};
    ASSERT_EQ(0, ::getrlimit(RLIMIT_FSIZE, &before));
    rlimit tight = before;
    tight.rlim_cur = old.size() + 30;
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &tight));
    ui_.expect(errorBox(61, "Disco pieno"));
    const End end = add("a01", {"una traduzione che non ha più posto nel file", "", ""});
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(End::Failed, end);
    EXPECT_EQ(old, dictionary());
}
#endif

TEST_F(Insertion, LosesNoEntryWhenSeveralProgramsAppend)
{
    dictionary("");
    constexpr int kEach = 25;
    const auto work = [this](char category) {
        testing::ScriptedUi ui;
        LastResult last;
        DictionaryInsertion insertion(drive_.files(), ui, last);
        for (std::size_t key = 0; key < kEach; ++key) {
            const std::string code = category + signCode(1, key).substr(1);
            EXPECT_EQ(End::Written, insertion.confirm(code, {std::string(50, category), "", ""}));
        }
    };
    std::thread other(work, 'b');
    work('a');
    other.join();
    EXPECT_EQ(2u * kEach, entries().size());
    for (const DictionaryEntry& entry : entries()) {
        EXPECT_EQ(std::string(50, entry.signs[0]), entry.translation);
    }
}

}  // namespace
}  // namespace karvel

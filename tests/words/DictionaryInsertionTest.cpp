#include "words/DictionaryInsertion.hpp"

#include <gtest/gtest.h>

#include <thread>

#include "base/SignCode.hpp"
#include "dictionary/RecordReader.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using End = DictionaryInsertion::End;
using testing::record;

MessageBox failureBox(const std::string& failure)
{
    return {.title = "ERRORE",
            .text = "C'e' un errore nel file dizio.txt ERR>" + failure +
                    "\nCi sono caratteri in meno o in più nel file !",
            .icon = Icon::Critical};
}

class Insertion : public ::testing::Test {
  protected:
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
    const std::string cut = record("b02", "due", "", "letta") + "\"c03\"\r\n\"tre";
    const MessageBox nothingTyped{
        .title = "ERRORE", .text = "NON HAI INSERITO NULLA !\n\nRIDIGITA IL TESTO", .icon = Icon::Critical};
    const MessageBox quotes{
        .title = "ATTENZIONE",
        .text = "Non è possibile utilizzare le virgolette nella frase.\n\nSostituirle con parentesi.",
        .icon = Icon::Exclamation};
    const MessageBox lacking{.title = "ATTENZIONE",
                             .text = "Questi caratteri non possono essere scritti nel dizionario: ☺ꜣ",
                             .icon = Icon::Critical};
    const MessageBox nothingComposed{
        .title = "ERRORE", .text = "NON HAI SCRITTO NULLA !", .icon = Icon::Question};
    const MessageBox missingSign{.title = "ATTENZIONE",
                                 .text =
                                     "La frase contiene il segno mancante: sostituirlo con un segno "
                                     "prima di inserirla nel dizionario.",
                                 .icon = Icon::Critical};
    const struct {
        std::string dictionary, codes;
        DictionaryInsertion::Texts texts;
        MessageBox box;
        End end = End::Refused;
    } kCases[] = {
        {old, "b02", {"", "\"", "\""}, nothingTyped},  // only the first field must be filled
        {old, "b02", {"ca\"sa", "", ""}, quotes},
        {old, "b02", {"casa", "\"", ""}, quotes},
        {old, "b02", {"casa ☺", "ꜣ", "\""}, quotes},  // quotes before characters
        {old, "a\"2", {"casa", "", ""}, quotes},
        {old, "b02", {"casa ☺", "ꜣ", "☺"}, lacking},
        {old, "", {"casa", "", ""}, nothingComposed},  // emptied while the dialog was open
        {old, "b02p47", {"casa", "", ""}, missingSign},
        {cut, "a01", {"casa", "", ""}, failureBox("62\nInput oltre la fine del file"), End::Failed},
        {"(none)", "a01", {"casa", "", ""}, failureBox("53\nFile non trovato"), End::Failed},
        {old,
         "a01",
         {"altro", "", ""},
         {.title = "ERRORE", .text = "Questa parola esiste già !"},
         End::Duplicate},
    };
    for (const auto& [dictionary, codes, texts, box, end] : kCases) {
        drive_.write(kDictionaryPath, dictionary);
        if (dictionary == "(none)") {
            drive_.files().remove(kDictionaryPath);
        }
        ui_.expect(box);
        EXPECT_EQ(end, add(codes, texts)) << box.text;
        EXPECT_EQ(dictionary, drive_.read(kDictionaryPath));
    }
    EXPECT_EQ("nota vecchia", last_.note);  // the search for a duplicate read it
    EXPECT_EQ("", last_.translation);
}

TEST_F(Insertion, AppendsFourQuotedLinesThatTheNextReadingFinds)
{
    const std::string old = record("a01p19", "uomo");
    const struct {
        std::string before, kept;  ///< `kept` stands before the new record afterwards
    } kCases[] = {
        {"", ""},
        {old, old},
        {old.substr(0, old.size() - 2), old},  // without its last line end
        {"\"c03\",\"tre\",\"\",\"\"  ", "\"c03\",\"tre\",\"\",\"\"  \r\n"},
        {old + " \r\n\n  \r\n   ", old},  // blank lines would shift the fields of what follows
        {old + std::string(500, '\n'), old},
        {" \r\n\r\n", ""},
        // A line end after a comma would be a field of its own, unless the comma comes before the last field.
        {"\"c03\",\"tre\",\"\",\"\",", "\"c03\",\"tre\",\"\",\"\","},
        {"\"c03\",\"tre\",\"\",\"\",  \r\n \r\n", "\"c03\",\"tre\",\"\",\"\","},
        {"\"c03\",\"tre\",\"\",\r\n\r\n", "\"c03\",\"tre\",\"\",\r\n"},
    };
    for (const auto& [before, kept] : kCases) {
        drive_.write(kDictionaryPath, before);
        EXPECT_EQ(End::Written, add("a01", {"  La citta\u0300,\r\nl'Àncora ", "", "*foto\n\u20281"}));
        EXPECT_EQ(kept + "\"a01\"\r\n\"  La citt\xE0, l'\xC0ncora \"\r\n\"\"\r\n\"*foto  1\"\r\n",
                  drive_.read(kDictionaryPath));
        EXPECT_EQ((DictionaryEntry{"a01", "  La città, l'Àncora ", "", "*foto  1"}), entries().back());
    }
}

TEST_F(Insertion, LosesNoEntryWhenSeveralProgramsAppend)
{
    drive_.write(kDictionaryPath, "");
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
}

}  // namespace
}  // namespace karvel

#include "dictionary/WordSplitter.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "compose/UndoFile.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::record;
using testing::ScriptedUi;
using testing::TemporaryDrive;

MessageBox wordBox(const DictionaryEntry& entry)
{
    return {.title = "Traduzione",
            .text = "traduzione:\n1 - " + entry.translation + "\n2 - " + entry.transliteration +
                    "\nNote: " + entry.note,
            .icon = Icon::Information,
            .buttons = Buttons::OkCancel};
}

struct Fixture {
    TemporaryDrive drive;
    ScriptedUi ui;
    testing::FakePictures pictures;
    testing::RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};

    explicit Fixture(const std::string& dictionary)
    {
        drive.writeSettings();
        drive.write(kDictionaryPath, dictionary);
        drive.write(kSearchModePath, " 2\r\n");
        session.modes().restore(session.files());
    }

    /// Undo brings any phrase back at once.
    void compose(const std::string& codes)
    {
        drive.write(kUndoPath, "file undo\r\n" + codes + "\r\n 0 \r\n 0 \r\n 0 \r\n");
        session.display().undo();
    }

    [[nodiscard]] std::string shown()
    {
        std::string codes;
        for (const DisplayLine::Cell& cell : session.display().cells()) {
            codes += cell.code;
        }
        return codes;
    }
};

TEST(WordSplitter, CutsThePhraseIntoTheLongestWords)
{
    const std::string uno = record("a01", "uno", "w", "nota");
    const std::string due = record("a01b02", "due");
    const std::string tre = record("c03", "tre");
    const std::string again = record("a01", "di nuovo");
    const std::string cut = "\"a01\"\r\n\"met\xE0";
    const struct {
        std::string file, phrase;
        std::vector<std::string> words;  ///< shown, each answered with OK, the last one with `answer`
        Button answer;
        bool fails;
        std::string left, shown, last;  ///< of the phrase; in the cells; translation of the record read last
    } cases[] = {
        {uno + due + tre, "a01b02c03", {"DUE", "TRE"}, Button::Ok, false, "c03", "c03", "TRE"},
        {due + uno + again, "a01a01", {"UNO", "UNO"}, Button::Ok, false, "a01", "a01", "UNO"},
        {uno + due, "a01b02c03", {"DUE"}, Button::Ok, false, "c03", "", "DUE"},  // no word begins with c03
        {uno + tre, "b02a01", {}, Button::Ok, false, "b02a01", "", "TRE"},
        {uno + due, "a01a01", {"UNO"}, Button::Cancel, false, "a01a01", "a01", "UNO"},
        {uno + cut, "a01", {"UNO"}, Button::Ok, false, "a01", "a01", "UNO"},  // the fault is not read
        {uno + cut, "a01a01", {}, Button::Ok, true, "a01a01", "a01a01", "UNO"},
        {"", "a01", {}, Button::Ok, false, "a01", "", ""},
    };
    for (const auto& [file, phrase, words, answer, fails, left, shown, last] : cases) {
        SCOPED_TRACE(phrase + " in " + file);
        Fixture fixture(file);
        fixture.compose(phrase);
        for (const std::string& word : words) {
            const bool first = word == "UNO";
            fixture.ui.expect(wordBox({"", word, first ? "w" : "", first ? "nota" : ""}),
                              &word == &words.back() ? answer : Button::Ok);
        }
        bool failed = false;
        try {
            fixture.session.search();
        } catch (const RuntimeError& error) {
            failed = error.number() == ErrorNumber::InputPastEnd;
        }
        EXPECT_EQ(failed, fails);
        EXPECT_EQ(fixture.session.display().DisplayCodes(), left);
        EXPECT_EQ(fixture.shown(), shown);
        EXPECT_EQ(fixture.session.last().translation, last);
        const std::size_t listed = words.size() - (answer == Button::Cancel ? 1 : 0);
        EXPECT_EQ(fixture.session.translatedWords().List1().size(), listed);
        EXPECT_EQ(fixture.ui.busyDepth, 0);
    }
}

TEST(WordSplitter, EndsQuietlyWhenTheUserStopsTheReading)
{
    Fixture fixture(record("a01", "uno"));
    fixture.compose("a01");
    fixture.ui.stopReading = true;
    EXPECT_THROW(fixture.session.search(), ReadingStopped);
    EXPECT_EQ("a01", fixture.shown());
}

TEST(TranslatedWords, TellsWhenThereIsNothingToShow)
{
    ScriptedUi ui;
    TranslatedWords words;
    const MessageBox nothing{
        .title = "Sistema:",
        .text =
            "Questo menù visualizza i termini ricercati con il metodo DIVIDI IN PAROLE\n\n"
            "Ora non vi sono termini presenti.",
        .icon = Icon::Information};
    ui.expect(nothing);
    EXPECT_FALSE(words.mayBeShown(ui));
    words.add("UNO", "a01");
    EXPECT_TRUE(words.mayBeShown(ui));
    words.clear();
    ui.expect(nothing);
    EXPECT_FALSE(words.mayBeShown(ui));
}

}  // namespace
}  // namespace karvel

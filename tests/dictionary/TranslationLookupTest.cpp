#include "dictionary/TranslationLookup.hpp"

#include <gtest/gtest.h>

#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::record;

class Shown : public ResultView {
  public:
    void showFound(std::string_view signs) override { events += "[" + std::string(signs) + "]"; }
    void showPicture(const std::string& name) override { events += "picture(" + name + ")"; }
    std::string events;
};

/// What one answer of the user's script stands for.
struct Result {
    std::string text;
    Button answer = Button::Ok;
};

struct Search {
    Mode mode;
    std::string phrase;
    std::string file;             ///< "(none)": there is no dictionary
    std::vector<Result> results;  ///< the "Traduzione" boxes
    std::string end;              ///< "found", "nothing", "cancelled", or the number of a run-time error
    std::string events;           ///< what the display and the picture window showed
    std::string lastTranslation, lastNote;
};

class TranslationLookupTest : public ::testing::Test {
  protected:
    void run(const Search& search)
    {
        SCOPED_TRACE(std::to_string(static_cast<int>(search.mode)) + " " + search.phrase + " in " +
                     search.file);
        const testing::TemporaryDrive drive;
        if (search.file != "(none)") {
            drive.write(kDictionaryPath, search.file);
        }
        testing::ScriptedUi ui;
        for (const auto& [text, answer] : search.results) {
            ui.expect({.title = "Traduzione", .text = text, .buttons = Buttons::OkCancel}, answer);
        }
        const bool explained = search.mode == Mode::Equal || search.mode == Mode::Contains;
        if (search.end == "found") {
            ui.expect({.title = "Ricerca:", .text = "Fine Ricerca"});
        } else if (search.end == "nothing") {
            ui.expect({.title = "Ricerca:", .text = "Non esiste una corrispondenza per questo termine !"});
        } else if (search.end != "cancelled" && explained) {
            const std::string text = search.end == "62" ? "Input oltre la fine del file" : "File non trovato";
            ui.expect({.title = "ERRORE",
                       .text = "C'e' un errore nel file dizio.txt ERR>" + search.end + "\n" + text +
                               "\nCi sono caratteri in meno o in più nel file !",
                       .icon = Icon::Critical});
        }
        Shown shown;
        LastResult last{"prima", "nota di prima", "z99"};
        std::string thrown;
        try {
            TranslationLookup(drive.files(), ui, shown, last).run(search.mode, search.phrase);
        } catch (const RuntimeError& error) {
            thrown = std::to_string(error.value());
        }
        const bool failed = search.end == "62" || search.end == "53";
        EXPECT_EQ(thrown, failed && !explained ? search.end : "");
        EXPECT_EQ(shown.events, search.events);
        EXPECT_EQ(last.translation, search.lastTranslation);
        EXPECT_EQ(last.note, search.lastNote);
        EXPECT_EQ(last.foundCodes, "z99");
        EXPECT_EQ(ui.busyDepth, 0);
    }

    static std::string box(const std::string& translation, const std::string& transliteration,
                           const std::string& note)
    {
        return "1) -  " + translation + "\n\n2) -  " + transliteration + "\n\nNote: " + note;
    }

    const std::string perche = record("a01", "perché, poiché", "nfr", "*occhio.gif");
    const std::string casa = record("a01b02", "casa", "pr", "nota");
    const std::string altro = record("c03", "altro", "ky", "ultima");
    const std::string perchBox = box("PERCHÉ, POICHÉ", "nfr", "*occhio.gif");
    const std::string casaBox = box("CASA", "pr", "nota");
};

TEST_F(TranslationLookupTest, ShowsEachMatchAndThenTheEnd)
{
    const std::string all = perche + casa + altro;
    const std::string both = "[a01][a01b02]";
    const std::string seen = "[a01]picture(occhio.gif)[a01b02]";
    for (const Search& search : std::initializer_list<Search>{
             {Mode::Equal, "a01", all, {{perchBox}}, "found", "[a01]", "altro", "ultima"},  // no picture
             {Mode::Contains, "a01", all, {{perchBox}, {casaBox}}, "found", seen, "altro", "ultima"},
             {Mode::StartsWith, "a01", all, {{perchBox}, {casaBox}}, "found", both, "altro", "ultima"},
             {Mode::EndsWith, "b02", all, {{casaBox}}, "found", "[a01b02]", "altro", "ultima"},
             {Mode::MissingSign, "a01p47", all, {{perchBox}, {casaBox}}, "found", both, "altro", "ultima"},
             {Mode::MissingSign, "a01", all, {}, "nothing", "", "altro", "ultima"},
             // The record read last stays: as it is stored, but a match as it was shown.
             {Mode::Equal, "d04", all, {}, "nothing", "", "altro", "ultima"},
             {Mode::Equal, "a01b02", perche + casa, {{casaBox}}, "found", "[a01b02]", "CASA", "nota"},
             {Mode::Equal, "a01", "", {}, "nothing", "", "prima", "nota di prima"},
         }) {
        run(search);
    }
}

TEST_F(TranslationLookupTest, CancelEndsTheSearchWithoutAWord)
{
    const Result cancelled{perchBox, Button::Cancel};
    const std::string shown = "PERCHÉ, POICHÉ";
    const std::string picture = "[a01]picture(occhio.gif)";
    for (const Search& search : std::initializer_list<Search>{
             {Mode::StartsWith, "a01", perche, {cancelled}, "cancelled", "[a01]", shown, "*occhio.gif"},
             {Mode::Contains, "a01", perche, {cancelled}, "cancelled", picture, shown, "*occhio.gif"},
             // A fault behind the match is not read.
             {Mode::Equal, "a01", perche + "\"x", {cancelled}, "cancelled", "[a01]", shown, "*occhio.gif"},
         }) {
        run(search);
    }
}

TEST_F(TranslationLookupTest, AFaultOfTheFileIsExplainedInTwoModesOnly)
{
    const std::string cut = casa + altro + "\"d04\"\r\n\"tagliata\"\r\n";
    const std::string open = casa + "\"d04\"\r\n\"aperta\r\n";
    for (const auto& [mode, phrase] : {std::pair{Mode::Equal, "a01b02"},
                                       {Mode::Contains, "a01"},
                                       {Mode::StartsWith, "a01"},
                                       {Mode::EndsWith, "b02"},
                                       {Mode::MissingSign, "a01p47"}}) {
        for (const Search& search : std::initializer_list<Search>{
                 {mode, phrase, cut, {{casaBox}}, "62", "[a01b02]", "altro", "ultima"},
                 {mode, phrase, open, {{casaBox}}, "62", "[a01b02]", "CASA", "nota"},
                 {mode, phrase, "(none)", {}, "53", "", "prima", "nota di prima"},
             }) {
            run(search);
        }
    }
}

TEST_F(TranslationLookupTest, StoppingALongReadingIsLikeCancel)
{
    const testing::TemporaryDrive drive;
    drive.write(kDictionaryPath, casa);
    testing::ScriptedUi ui;
    ui.stopReading = true;
    Shown shown;
    LastResult last{"prima", "", ""};
    TranslationLookup(drive.files(), ui, shown, last).run(Mode::Equal, "a01b02");
    EXPECT_EQ(ui.busyDepth, 0);
    EXPECT_EQ(last.translation, "prima");
}

}  // namespace
}  // namespace karvel

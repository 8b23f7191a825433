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
    const char* name;
    int mode;
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
        SCOPED_TRACE(search.name);
        const testing::TemporaryDrive drive;
        if (search.file != "(none)") {
            drive.write(kDictionaryPath, search.file);
        }
        testing::ScriptedUi ui;
        for (const auto& [text, answer] : search.results) {
            ui.expect({.title = "Traduzione", .text = text, .buttons = Buttons::OkCancel}, answer);
        }
        const bool explained = search.mode != 4 && search.mode != 5 && search.mode != 6;
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
            TranslationLookup(drive.files(), ui, shown, last)
                .run(static_cast<std::uint8_t>(search.mode), search.phrase);
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
    for (const Search& search : {
             Search{"equal: text only, though the note names a picture",
                    1,
                    "a01",
                    all,
                    {{perchBox}},
                    "found",
                    "[a01]",
                    "altro",
                    "ultima"},
             Search{"contains: the picture opens after its box",
                    3,
                    "a01",
                    all,
                    {{perchBox}, {casaBox}},
                    "found",
                    "[a01]picture(occhio.gif)[a01b02]",
                    "altro",
                    "ultima"},
             Search{"a mode that is none searches like contains",
                    77,
                    "a01b02",
                    all,
                    {{casaBox}},
                    "found",
                    "[a01b02]",
                    "altro",
                    "ultima"},
             Search{"starts",
                    4,
                    "a01",
                    all,
                    {{perchBox}, {casaBox}},
                    "found",
                    "[a01][a01b02]",
                    "altro",
                    "ultima"},
             Search{"ends", 5, "b02", all, {{casaBox}}, "found", "[a01b02]", "altro", "ultima"},
             Search{"missing sign",
                    6,
                    "a01p47",
                    all,
                    {{perchBox}, {casaBox}},
                    "found",
                    "[a01][a01b02]",
                    "altro",
                    "ultima"},
             Search{"missing sign without one in the phrase",
                    6,
                    "a01",
                    all,
                    {},
                    "nothing",
                    "",
                    "altro",
                    "ultima"},
             Search{"nothing found: the last record stays, as it is stored",
                    1,
                    "d04",
                    all,
                    {},
                    "nothing",
                    "",
                    "altro",
                    "ultima"},
             Search{"the match is the last record: its translation stays as shown",
                    1,
                    "a01b02",
                    perche + casa,
                    {{casaBox}},
                    "found",
                    "[a01b02]",
                    "CASA",
                    "nota"},
             Search{"an empty dictionary keeps the last record of the search before",
                    1,
                    "a01",
                    "",
                    {},
                    "nothing",
                    "",
                    "prima",
                    "nota di prima"},
         }) {
        run(search);
    }
}

TEST_F(TranslationLookupTest, CancelEndsTheSearchWithoutAWord)
{
    for (const Search& search : {
             Search{"at the first match",
                    4,
                    "a01",
                    perche + casa,
                    {{perchBox, Button::Cancel}},
                    "cancelled",
                    "[a01]",
                    "PERCHÉ, POICHÉ",
                    "*occhio.gif"},
             Search{"the picture still opens",
                    3,
                    "a01",
                    perche + casa,
                    {{perchBox, Button::Cancel}},
                    "cancelled",
                    "[a01]picture(occhio.gif)",
                    "PERCHÉ, POICHÉ",
                    "*occhio.gif"},
             Search{"a fault behind the match is not read",
                    1,
                    "a01b02",
                    casa + "\"x",
                    {{casaBox, Button::Cancel}},
                    "cancelled",
                    "[a01b02]",
                    "CASA",
                    "nota"},
         }) {
        run(search);
    }
}

TEST_F(TranslationLookupTest, AFaultOfTheFileIsExplainedInTwoModesOnly)
{
    const std::string cut = casa + altro + "\"d04\"\r\n\"tagliata\"\r\n";
    const std::string open = casa + "\"d04\"\r\n\"aperta\r\n";
    for (const int mode : {1, 3, 0, 200, 4, 5, 6}) {
        const std::string phrase = mode == 6 ? "a01p47" : mode == 5 ? "b02" : mode == 1 ? "a01b02" : "a01";
        for (const Search& search : {
                 Search{"cut record: the matches before it were shown",
                        mode,
                        phrase,
                        cut,
                        {{casaBox}},
                        "62",
                        "[a01b02]",
                        "altro",
                        "ultima"},
                 Search{"unclosed quote", mode, phrase, open, {{casaBox}}, "62", "[a01b02]", "CASA", "nota"},
                 Search{"no file", mode, phrase, "(none)", {}, "53", "", "prima", "nota di prima"},
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
    TranslationLookup(drive.files(), ui, shown, last).run(1, "a01b02");
    EXPECT_EQ(ui.busyDepth, 0);
    EXPECT_EQ(last.translation, "prima");
}

}  // namespace
}  // namespace karvel

#include "words/ItalianSearch.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::record;

std::vector<std::string> listFor(const std::vector<std::string>& translations)
{
    std::string file;
    for (const std::string& translation : translations) {
        file += record("a01", translation);
    }
    RecordReader reader(std::make_unique<TextSource>(file));
    return wordList(reader);
}

TEST(WordList, IsSortedFoldedAndEndsWithAnEmptyItem)
{
    using List = std::vector<std::string>;
    const struct {
        List translations, list;
    } kCases[] = {
        {{}, {""}},
        {{""}, {""}},
        {{"", "sole"}, {"", "sole", ""}},
        {{"zio", "Zeta", "acqua", "zio"}, {"acqua", "Zeta", "zio", ""}},  // letter case does not sort
        {{"Casa", "casa", "CASA"}, {"Casa", ""}},                         // the first spelling is kept
        {{"papà", "Papa", "PAPÀ", "papa"}, {"Papa", "papà", ""}},         // an accent is a difference
        {{"età", "etere", "eta"}, {"eta", "età", "etere", ""}},           // next to the plain letter
    };
    for (const auto& [translations, list] : kCases) {
        EXPECT_EQ(list, listFor(translations));
    }
}

TEST(ItalianWord, IsComparedWholeOrFoundInside)
{
    using Match = ItalianWord::Match;
    const struct {
        const char* word;
        Match match;
        const char* translation;  ///< in the code page
        bool matches;
    } kCases[] = {
        {"casa", Match::Whole, "Casa", false},
        {"casa", Match::Whole, "casa ", false},
        {"citt\u00e0", Match::Whole, "citt\xe0", true},
        {"citta\u0300", Match::Whole, "citt\xe0",
         true},  // an accented letter in two parts {"\u263a", Match::Whole, "?", false},
        {"CAS", Match::Contains, "la casa", true},
        {"T\u00c0", Match::Contains, "citt\xe0", true},
        {"ta", Match::Contains, "citt\xe0", false},
        {"", Match::Contains, "", true},
        {"casa", Match::Contains, "cas", false},
        {"\u263a", Match::Contains, "?", false},
    };
    for (const auto& [word, match, translation, matches] : kCases) {
        EXPECT_EQ(matches, ItalianWord(word, match).matches(translation)) << word << " / " << translation;
    }
}

const MessageBox kGoOn{.title = "Ricerca italiano-geroglifico",
                       .text = "Continua la ricerca",
                       .icon = Icon::Exclamation,
                       .buttons = Buttons::OkCancel};
const MessageBox kEnd{.title = "SISTEMA:", .text = "Fine ricerca !", .icon = Icon::Exclamation};

MessageBox found(const std::string& translation, const std::string& transliteration, const std::string& note)
{
    return {.title = "Traduzione",
            .text = "1) -  " + translation + "\n\n2) -  " + transliteration + "\n\nNote: " + note,
            .buttons = Buttons::OkCancel};
}

class ItalianSearching : public ::testing::Test {
  protected:
    ItalianSearching()
    {
        drive_.writeSettings();
        drive_.write(kDictionaryPath, record("a01b02", "casa", "pr", "n1") +
                                          record("c03", "Casa", "x", "n2") +
                                          record("d04", "casa", "y", "più") +
                                          record("e05f06", "la casa è qui", "z", "ultima"));
        for (int i = 1; i <= 15; ++i) {
            session_.display().insert("g" + std::string(i < 10 ? "0" : "") + std::to_string(i), 0);
        }
    }

    [[nodiscard]] std::string shown()
    {
        std::string codes;
        for (const DisplayLine::Cell& cell : session_.display().cells()) {
            codes += cell.blank() ? "." : cell.code;
        }
        return codes;
    }
    ItalianSearch& search() { return session_.italianSearch(); }

    testing::TemporaryDrive drive_;
    testing::ScriptedUi ui_;
    testing::FakePictures pictures_;
    testing::RecordedWindows windows_;
    Session session_{drive_.files(), pictures_, ui_, windows_};
};

TEST_F(ItalianSearching, FindsWholeTranslationsAndKeepsTheTailOfTheDisplay)
{
    ui_.expect(found("casa", "pr", "n1"), Button::Cancel);  // this answer decides nothing
    ui_.expect(kGoOn);
    ui_.expect(found("casa", "y", "più"));
    ui_.expect(kGoOn, Button::Cancel);
    search().search("casa");
    EXPECT_EQ("d04.........g14g15", shown());  // the first ten cells were cleared
    EXPECT_EQ(45u, session_.display().DisplayCodes().size());
    EXPECT_EQ("d04", session_.last().foundCodes);
    EXPECT_EQ("più", session_.last().note);

    EXPECT_EQ("d04", search().shownSigns());

    search().search("cas");  // neither an end message nor an open file
    search().search("Cas");
    EXPECT_EQ("la casa è qui", session_.last().translation);
    EXPECT_EQ("d04", session_.last().foundCodes);
    EXPECT_EQ(0, ui_.busyDepth);
}

TEST_F(ItalianSearching, SpecificSearchShowsCapitalsAndClearsAtTheEnd)
{
    ui_.answerInput("a C");
    ui_.expect(found("LA CASA È QUI", "Z", "ULTIMA"));
    ui_.expect(kGoOn);
    ui_.expect(kEnd);
    search().searchSpecific();
    EXPECT_EQ(std::vector<std::string>{"CERCA|Ricerca la parola"}, ui_.inputsAsked);
    EXPECT_EQ("..........g14g15", shown());
    EXPECT_EQ("E05F06", session_.last().foundCodes);
    EXPECT_EQ("e05f06", session_.last().phrase);
    EXPECT_EQ("LA CASA È QUI", session_.last().translation);

    drive_.write(kDictionaryPath, record("d04", "casa", "y") + record("e05", "altro"));
    ui_.answerInput("casa");
    ui_.expect(found("CASA", "Y", ""));
    ui_.expect(kGoOn);
    ui_.expect(kEnd);
    search().searchSpecific();
    EXPECT_EQ("E05", session_.last().foundCodes);  // the record read last
    EXPECT_EQ("d04", search().shownSigns());       // the match shown last
}

TEST_F(ItalianSearching, ACancelledSpecificSearchStaysOpenUntilItIsClosed)
{
    ui_.answerInput(std::nullopt);
    search().searchSpecific();
    ui_.answerInput("LA CASA");
    ui_.expect(found("LA CASA È QUI", "Z", "ULTIMA"));
    ui_.expect(kGoOn, Button::Cancel);
    search().searchSpecific();
    EXPECT_EQ("e05f06g06g07g08g09g10g11g12g13g14g15", shown());  // over what the cells showed

    EXPECT_EQ(3u, search().buildWordList().size());  // the list has a file of its own
    for (int times = 0; times < 2; ++times) {        // refused once: the choice has closed it
        std::string error;
        try {
            search().choose("nessuna");
        } catch (const RuntimeError& failure) {
            error = std::to_string(failure.value()) + failure.furtherLine();
        }
        EXPECT_EQ(times == 0 ? "55Premere ANNULLA per chiudere la ricerca in corso." : "", error);
    }
}

/// Closes the search, as the user can, while one of its boxes is open.
class ClosingUi : public testing::ScriptedUi {
  public:
    Button ask(const MessageBox& box) override
    {
        search->close();
        return ScriptedUi::ask(box);
    }
    ItalianSearch* search = nullptr;
};

TEST_F(ItalianSearching, ASearchClosedWhileItsBoxIsOpenEndsWithThatBox)
{
    ClosingUi ui;
    LastResult last;
    ItalianSearch search(drive_.files(), ui, session_.display(), last, session_.history());
    ui.search = &search;
    ui.expect(found("casa", "pr", "n1"));  // there is a second one
    ui.expect(kGoOn, Button::Ok);
    search.search("casa");
    search.search("nessuna");
}

TEST_F(ItalianSearching, AFaultyDictionaryEndsTheSearchAndClosesIt)
{
    drive_.write(kDictionaryPath, record("a01", "casa") + "\"b02\"\r\n");
    ui_.expect(found("casa", "", ""));
    ui_.expect(kGoOn);
    EXPECT_THROW(search().search("casa"), RuntimeError);
    drive_.write(kDictionaryPath, "");
    search().search("casa");
    EXPECT_EQ("casa", session_.last().translation);  // an empty file takes nothing away
    EXPECT_EQ(0, ui_.busyDepth);
}

}  // namespace
}  // namespace karvel

#include "compose/History.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

/// "3:a01 -:amare", oldest first.
std::string told(History& history)
{
    std::string text;
    for (const History::Search& search : history.searches()) {
        text += (text.empty() ? "" : " ") + (search.isText() ? "-" : std::to_string(search.mode)) + ':' +
                search.text;
    }
    return text;
}

TEST(History, KeepsEachSearchOnceInItsFile)
{
    const testing::TemporaryDrive drive;
    drive.writeSettings();
    History history(drive.files());
    history.rememberPhrase(3, "a01");
    history.rememberText("  la città & più ");
    history.rememberPhrase(1, "a01");
    history.rememberPhrase(3, "a01");  // asked again: the newest now
    history.rememberText("  ");
    history.rememberPhrase(3, "");
    history.rememberText("due\trighe");
    EXPECT_EQ(told(history), "-:la città & più 1:a01 3:a01");
    EXPECT_EQ(drive.read(kHistoryPath), "testo\tla città & più\r\n1\ta01\r\n3\ta01\r\n");
    History later(drive.files());
    EXPECT_EQ(told(later), told(history));
    for (int i = 0; i < 250; ++i) {
        later.rememberText(std::to_string(i));
    }
    EXPECT_EQ(later.searches().size(), History::kKept);
    EXPECT_EQ(later.searches().front().text, "50");
}

TEST(History, TakesWhatItCanFromADamagedFile)
{
    const std::string tooLong(253, 'a');
    const struct {
        std::string bytes, searches;
    } kCases[] = {
        {"3\ta01\n\n7\ta02\n3 a03\ntesto\tre\r\ntesto\t\nTesto\tx\n33\ta04\n2\tb01", "3:a01 -:re 2:b01"},
        {"3\t" + tooLong + "\n3\ta\x01" + "1\n3\tcittà\ntesto\t" + std::string(1001, 'x') + "\n1\ta01",
         "1:a01"},
        {std::string(5000, '\0'), ""},
        {"3\ta01\n1\ta01\n3\ta01\n", "1:a01 3:a01"},
    };
    for (const auto& [bytes, searches] : kCases) {
        const testing::TemporaryDrive drive;
        drive.write(kHistoryPath, bytes);
        History history(drive.files());
        EXPECT_EQ(told(history), searches);
    }
}

TEST(History, GoesOnInMemoryWhereItCannotBeReadOrWritten)
{
    const testing::TemporaryDrive drive;
    const std::string tooLarge((1U << 20) + 1, 'x');
    drive.write(kHistoryPath, tooLarge);
    History unread(drive.files());
    unread.rememberPhrase(4, "b02");
    EXPECT_EQ(told(unread), "4:b02");
    EXPECT_EQ(drive.read(kHistoryPath), tooLarge);  // what cannot be read is left alone
    unread.clear();
    EXPECT_EQ(drive.read(kHistoryPath), "(none)");

    std::filesystem::create_directories(drive.host(kHistoryPath));
    History unwritten(drive.files());
    unwritten.rememberPhrase(4, "b02");
    EXPECT_EQ(told(unwritten), "4:b02");
    unwritten.clear();
    EXPECT_EQ(told(unwritten), "");
}

TEST(History, StepsOverTextsAndOverThePhraseThatIsShown)
{
    const testing::TemporaryDrive drive;
    History history(drive.files());
    for (const char* const codes : {"a01", "a02", "a03"}) {
        history.rememberPhrase(3, codes);
        history.rememberText("testo");
    }
    history.rememberPhrase(1, "a03");
    const struct {
        bool back;
        const char *shown, *brought;  ///< "": nothing
    } kSteps[] = {{false, "a03", ""},    {true, "a03", "a02"},  {true, "a02", "a01"},  {true, "a01", ""},
                  {false, "a01", "a02"}, {true, "b01", "a01"},  {false, "a01", "a02"}, {false, "a02", "a03"},
                  {false, "a03", ""},    {false, "b01", "a03"}, {false, "b01", ""}};
    for (const auto& [back, shown, brought] : kSteps) {
        EXPECT_EQ((back ? history.earlier(shown) : history.later(shown)).value_or(""), brought);
    }
    history.rememberPhrase(3, "c01");
    EXPECT_EQ(history.earlier(""), "c01");
    history.stepFrom(0);
    EXPECT_EQ(history.later("a01"), "a02");
}

TEST(History, IsMadeBySearchesAndBringsPhrasesBackWithTheModeTheyNeed)
{
    const testing::TemporaryDrive drive;
    drive.writeSettings();
    testing::ScriptedUi ui;
    testing::FakePictures pictures;
    testing::RecordedWindows windows;
    Session session(drive.files(), pictures, ui, windows);
    session.modes().choose(Mode::Split, session.files());
    session.search();  // opens the Italian search: nothing to remember
    session.palette().pressCode("a01");
    session.search();
    session.display().clearAll();
    session.modes().activateMissingSign();
    session.insertion()("a02", 3);
    session.insertion()(kMissingSign, 3);
    ui.expect({.title = "Ricerca:", .text = std::string(kNothingFound)});
    session.search();
    session.italianSearch().search("casa");
    EXPECT_EQ(told(session.history()), "2:a01 6:a02p47 -:casa");

    session.earlierPhrase();
    EXPECT_EQ(session.display().DisplayCodes(), "a01");
    EXPECT_TRUE(session.modes().is(Mode::MissingSign));  // the mode stays
    session.modes().choose(Mode::EndsWith, session.files());
    session.laterPhrase();
    EXPECT_EQ(session.display().DisplayCodes(), "a02p47");
    EXPECT_TRUE(session.modes().is(Mode::MissingSign));
    session.laterPhrase();  // there is none
    EXPECT_EQ(ui.beeps, 1);

    for (const Button answer : {Button::No, Button::Yes}) {
        ui.expect({.title = "Cronologia",
                   .text = "Cancellare tutte le ricerche della cronologia ?",
                   .icon = Icon::Question,
                   .buttons = Buttons::YesNo,
                   .defaultButton = Button::No},
                  answer);
        session.clearHistory();
        EXPECT_EQ(session.history().searches().empty(), answer == Button::Yes);
    }
    EXPECT_EQ(drive.read(kHistoryPath), "(none)");
}

}  // namespace
}  // namespace karvel

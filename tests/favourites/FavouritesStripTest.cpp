#include "favourites/FavouritesStrip.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {
namespace {

using testing::FakePictures;
using testing::RecordedWindows;
using testing::ScriptedUi;
using testing::TemporaryDrive;

std::string gr(std::string_view code)
{
    return "C:\\Programmi\\Karvel\\GR\\" + std::string(code) + ".gif";
}

std::string page(const std::vector<std::string>& codes)
{
    std::string text;
    for (const std::string& code : codes) {
        text += (code.empty() ? code : gr(code)) + "\r\n";
    }
    return text;
}

class FavouritesStripTest : public ::testing::Test {
  protected:
    FavouritesStripTest()
    {
        drive.writeSettings();
        session.palette().loadPage();
        session.FavouritePage = 1;
    }

    void fill(const std::vector<std::string>& codes)
    {
        auto all = codes;
        all.resize(8);
        drive.write("C:\\programmi\\Karvel\\prefe\\pre1.prf", page(all));
        strip.showFirstPage();
    }

    void press(std::size_t key, int times = 1)
    {
        for (int i = 0; i < times; ++i) {
            session.palette().press(key);
        }
    }

    /// The codes on the visible buttons, "-" for a hidden one, "*" behind the marked ones.
    [[nodiscard]] std::string shown() const
    {
        std::string text;
        for (const auto& button : strip.buttons()) {
            text += text.empty() ? "" : " ";
            text += button.visible ? button.picture.substr(23, 3) : "-";
            text += button.caption == "Canc ?" ? "*" : "";
        }
        return text;
    }

    TemporaryDrive drive;
    FakePictures pictures;
    ScriptedUi ui;
    RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};
    FavouritesStrip& strip = session.favourites();
};

TEST_F(FavouritesStripTest, InsertsTheChosenSignIntoTheFirstPlaceOnly)
{
    fill({"e16", "b47"});
    press(0);
    press(1);
    strip.insertCurrent();
    EXPECT_EQ(shown(), "a02 b47 - - - - - -");
    EXPECT_EQ(session.display().DisplayCodes(), "a01");
    EXPECT_TRUE(session.display().cells()[0].blank());
    EXPECT_EQ(session.palette().CurrentSignCode(), "");
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\preferiti"), page({"a02", "b47", "", "", "", "", "", ""}));

    // The display counts as empty: the next sign goes to the first cell, and the stale one behind it is no
    // sign of the phrase that could be deleted.
    press(4);
    EXPECT_EQ(session.display().DisplayCodes(), "a01a05");
    EXPECT_EQ(session.display().cells()[0].code, "a05");
    session.display().clickCell(1);
    session.display().deleteSelected();
    EXPECT_EQ(session.display().DisplayCodes(), "a01a05");
    strip.insertCurrent();
    EXPECT_EQ(shown(), "a05 b47 - - - - - -");
}

TEST_F(FavouritesStripTest, RefusesNoSignAndTheMissingSign)
{
    drive.write("C:\\programmi\\Karvel\\preferiti", "as it was");
    ui.expect({.title = "Sistema:",
               .text = "Selezionare con il mouse il geroglifico da inserire nei preferiti e poi premere F4",
               .icon = Icon::Critical});
    strip.insertCurrent();
    ui.expect({.title = "Messaggio di sistema",
               .text = "Non è possibile inserire questo carattere nei preferiti",
               .icon = Icon::Critical});
    session.palette().setCurrentSignCode("p47");
    strip.insertCurrent();
    EXPECT_EQ(shown(), "- - - - - - - -");
    EXPECT_EQ(session.palette().CurrentSignCode(), "p47");
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\preferiti"), "as it was");
}

TEST_F(FavouritesStripTest, TakesTheSignFromAFixedPlaceOfThePath)
{
    struct Case {
        std::string path;
        std::string sign;
    };
    const std::vector<Case> cases = {
        {gr("h49"), "h49"},
        {"c:\\programmi\\karvel\\gr\\a01.gif", "a01"},
        {"D:\\segni però di Luxor\\b02.gif", "b02"},  // counted in characters, not in bytes
        {"C:\\Segni, note e appunti\\c03.gif", "i\\c"},
        {"C:\\i miei segni di Abido\\a01.gif", "o\\a"},             // whatever stands there
        {"C:\\i miei segni di Giz\xC3\xA0\xC3\xA8\\.gif", "?\\."},  // no text that a phrase can hold
        {"C:\\GR\\a01.gif", ""},
        {"C:\\Programmi\\Karvel\\GR\\a", "a"},
    };
    for (const Case& each : cases) {
        // In quotes, as a path with a comma must be.
        drive.write("C:\\programmi\\Karvel\\prefe\\pre1.prf",
                    quotedLine(each.path) + "\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
        strip.showFirstPage();
        EXPECT_EQ(strip.Favourites()[0], each.path);
        EXPECT_EQ(strip.signOf(0), each.sign) << each.path;
    }
}

TEST_F(FavouritesStripTest, PressingWritesTheSign)
{
    fill({"e16", "b47"});
    press(0);
    strip.press(1);
    EXPECT_EQ(session.display().DisplayCodes(), "a01b47");
    EXPECT_EQ(session.palette().CurrentSignCode(), "b47");
    EXPECT_EQ(strip.LastFavouritePressed(), 1);
    EXPECT_EQ(session.display().cells()[1].path, gr("b47"));
    session.display().undo();
    EXPECT_EQ(session.display().DisplayCodes(), "a01");

    session.display().clearAll();
    press(0, 84);
    ui.expect({.title = "SISTEMA", .text = "attenzione limite massimo caratteri 84", .icon = Icon::Critical});
    strip.press(0);
    EXPECT_EQ(session.display().signs(), 84U);
    EXPECT_EQ(session.palette().CurrentSignCode(), "a01");
    EXPECT_EQ(strip.LastFavouritePressed(), 1);
}

TEST_F(FavouritesStripTest, MarkMovesOverVisibleButtonsAndWandersAfterADeletion)
{
    fill({"a01", "a02", "a03"});
    strip.openPanel();
    EXPECT_TRUE(strip.panelVisible());
    EXPECT_EQ(shown(), "a01* a02 a03 - - - - -");
    strip.markLeft();
    strip.markRight();
    EXPECT_EQ(shown(), "a01 a02* a03 - - - - -");
    strip.markRight();
    strip.markRight();
    EXPECT_EQ(shown(), "a01 a02 a03* - - - - -");
    strip.markLeft();

    strip.deleteMarked();
    EXPECT_EQ(shown(), "a01 a03* - - - - - -");  // the caption stays,
    EXPECT_EQ(strip.SelectedFavourite(), 0);     // the mark goes back
    EXPECT_EQ(strip.FavouriteCount(), -1);
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\preferiti"), page({"a01", "a03", "", "", "", "", "", ""}));
    strip.deleteMarked();
    EXPECT_EQ(strip.Favourites()[0], gr("a03"));
    strip.closePanel();
    EXPECT_EQ(shown(), "a03 - - - - - - -");
    EXPECT_FALSE(strip.panelVisible());
}

TEST_F(FavouritesStripTest, MarkStaysOnAFullStrip)
{
    fill({"a01", "a02", "a03", "a04", "a05", "a06", "a07", "a08"});
    strip.openPanel();
    for (int i = 0; i < 9; ++i) {
        strip.markRight();
    }
    EXPECT_EQ(strip.SelectedFavourite(), 7);
    EXPECT_EQ(shown(), "a01 a02 a03 a04 a05 a06 a07 a08*");
    // Only the last place gets empty: one step back.
    strip.deleteMarked();
    EXPECT_EQ(strip.SelectedFavourite(), 6);
    strip.deleteMarked();
    EXPECT_EQ(strip.SelectedFavourite(), 4);
    EXPECT_EQ(strip.Favourites()[5], gr("a06"));
    EXPECT_TRUE(strip.Favourites()[6].empty());

    strip.hide();
    EXPECT_EQ(shown(), "- - - - - - - -*");
    strip.showFirstPage();
    strip.deleteAll();
    EXPECT_EQ(shown(), "- - - - - - - -*");
    EXPECT_EQ(strip.FavouriteCount(), 0);
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\preferiti"), page({"", "", "", "", "", "", "", ""}));
}

TEST_F(FavouritesStripTest, FacilitatedEmptiesTheButtonsAndKeepsTheSlots)
{
    fill({"a01", "a02"});
    strip.hideForFacilitated();
    EXPECT_EQ(shown(), "- - - - - - - -");
    EXPECT_EQ(strip.Favourites()[1], gr("a02"));
    press(2);
    strip.insertCurrent();
    EXPECT_EQ(shown(), "a03 - - - - - - -");  // the others hold no picture
}

TEST_F(FavouritesStripTest, AStripFileThatCannotBeWrittenChangesNothingElse)
{
    drive.write("C:\\programmi\\Karvel\\preferiti\\x", "a directory in its place");
    press(0);
    strip.insertCurrent();
    EXPECT_EQ(shown(), "a01 - - - - - - -");
}

TEST_F(FavouritesStripTest, TurnsPagesBetweenItsBounds)
{
    fill({"a01"});
    drive.write("C:\\programmi\\Karvel\\prefe\\PRE2.PRF", page({"b01", "b02"}));  // short, no third line
    drive.write("C:\\programmi\\Karvel\\prefe\\pre99.prf", page({"", "", "", "", "", "", "", "c01"}));

    EXPECT_EQ(strip.pageName(), "pre1");
    strip.previousPage();
    EXPECT_EQ(session.FavouritePage, 1);
    EXPECT_EQ(shown(), "a01 - - - - - - -");
    strip.nextPage();
    EXPECT_EQ(strip.pageName(), "pre2");
    EXPECT_EQ(shown(), "b01 b02 - - - - - -");
    strip.nextPage();  // no file: the new name over the old favourites
    EXPECT_EQ(strip.pageName(), "pre3");
    EXPECT_EQ(shown(), "b01 b02 - - - - - -");
    strip.showFirstPage();
    EXPECT_EQ(strip.pageName(), "pre3");
    EXPECT_EQ(session.FavouritePage, 3);
    session.FavouritePage = 99;
    strip.nextPage();
    EXPECT_EQ(strip.pageName(), "pre99");
    EXPECT_EQ(shown(), "- - - - - - - c01");

    // The code view leaves its count here.
    session.FavouritePage = 11569;
    strip.nextPage();
    EXPECT_EQ(strip.pageName(), "pre11569");
    strip.previousPage();
    EXPECT_EQ(strip.pageName(), "pre11568");
    session.FavouritePage = 0;
    strip.previousPage();
    EXPECT_EQ(strip.pageName(), "pre0");
}

TEST_F(FavouritesStripTest, SavesNineLinesAndLoadsEight)
{
    fill({"a01", "a02", "a03", "a04", "a05", "a06", "a07", "a08"});
    strip.save("");
    strip.save("C:\\programmi\\Karvel\\prefe\\mie");
    std::string second = "C:\\programmi\\Karvel\\prefe\\mie.prf";  // gets a second ending
#if !defined(_WIN32)
    second =
        utf8Path(drive.host(second));  // the host's own path; on Windows it has a drive letter like any other
#endif
    strip.save(second);
    const std::string expected = page({"a01", "a02", "a03", "a04", "a05", "a06", "a07", "a08", ""});
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\prefe\\mie.prf"), expected);
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\prefe\\mie.prf.prf"), expected);

    strip.deleteAll();
    strip.load("C:\\programmi\\Karvel\\prefe\\mie.PRF");
    strip.load("");
    EXPECT_EQ(shown(), "- - - - - - - -");
    strip.load("C:\\programmi\\Karvel\\prefe\\mie.prf");
    EXPECT_EQ(shown(), "a01 a02 a03 a04 a05 a06 a07 a08");
}

TEST_F(FavouritesStripTest, WhatCannotBeReadWholeLeavesTheStrip)
{
    fill({"a01", "a02"});
    struct Case {
        std::string_view bytes;
        ErrorNumber number;
    };
    const std::vector<Case> cases = {
        {"x\r\ny\r\n", ErrorNumber::InputPastEnd},
        {"", ErrorNumber::InputPastEnd},
        {"\"never closed\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n", ErrorNumber::InputPastEnd}};
    for (const Case& each : cases) {
        drive.write("C:\\programmi\\Karvel\\prefe\\pre1.prf", each.bytes);
        for (const bool first : {true, false}) {
            try {
                first ? strip.showFirstPage() : strip.load("C:\\programmi\\Karvel\\prefe\\pre1.prf");
                ADD_FAILURE() << each.bytes;
            } catch (const RuntimeError& error) {
                EXPECT_EQ(error.number(), each.number) << each.bytes;
            }
        }
        EXPECT_EQ(shown(), "a01 a02 - - - - - -");
    }
    EXPECT_THROW(strip.load("C:\\programmi\\Karvel\\prefe\\none.prf"), RuntimeError);
    EXPECT_THROW(strip.save("C:\\nowhere\\mie"), RuntimeError);
    EXPECT_EQ(shown(), "a01 a02 - - - - - -");
}

}  // namespace
}  // namespace karvel

#include "favourites/FavouritesStrip.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"
#include "text/FieldWriter.hpp"

namespace karvel {
namespace {

const std::string kPages(kPageDirectory);

std::string gr(std::string_view code)
{
    return "C:\\Programmi\\Karvel\\GR\\" + std::string(code) + ".gif";
}

/// A file of favourites: the signs of `codes`, then empty lines up to `lines`.
std::string page(std::string_view codes, std::size_t lines = 8)
{
    std::string text;
    for (std::size_t line = 0; line < lines; ++line) {
        const std::string_view code = codes.substr(std::min(codes.size(), line * 3), 3);
        text += (code.empty() ? "" : gr(code)) + "\r\n";
    }
    return text;
}

class Favourites : public ::testing::Test {
  protected:
    Favourites()
    {
        drive.writeSettings();
        session.palette().loadPage();
        session.FavouritePage = 1;
    }

    void fill(std::string_view codes)
    {
        drive.write(kPages + "pre1.prf", page(codes));
        strip.showFirstPage();
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

    testing::TemporaryDrive drive;
    testing::FakePictures pictures;
    testing::ScriptedUi ui;
    testing::RecordedWindows windows;
    Session session{drive.files(), pictures, ui, windows};
    FavouritesStrip& strip = session.favourites();
};

TEST_F(Favourites, InsertsTheChosenSignIntoTheFirstPlaceOnly)
{
    fill("e16b47");
    session.palette().press(0);
    session.palette().press(1);
    strip.insertCurrent();
    EXPECT_EQ(shown(), "a02 b47 - - - - - -");
    EXPECT_EQ(session.display().DisplayCodes(), "a01");
    EXPECT_TRUE(session.display().cells()[0].blank());
    EXPECT_EQ(drive.read(kStripPath), page("a02b47"));

    ui.expect({.title = "Sistema:",
               .text = "Selezionare con il mouse il geroglifico da inserire nei preferiti e poi premere F4",
               .icon = Icon::Critical});
    strip.insertCurrent();  // nothing is chosen any more
    ui.expect({.title = "Messaggio di sistema",
               .text = "Non è possibile inserire questo carattere nei preferiti",
               .icon = Icon::Critical});
    session.palette().setCurrentSignCode("p47");
    strip.insertCurrent();
    EXPECT_EQ(drive.read(kStripPath), page("a02b47"));

    drive.files().remove(kStripPath);
    drive.write(std::string(kStripPath) + "\\x", "a directory in its place: told to nobody");
    session.palette().setCurrentSignCode("a05");
    strip.insertCurrent();
    EXPECT_EQ(shown(), "a05 b47 - - - - - -");
}

TEST_F(Favourites, TakesTheSignFromAFixedPlaceOfThePath)
{
    const struct {
        std::string path, sign;
    } kCases[] = {
        {gr("h49"), "h49"},
        {"D:\\segni però di Luxor\\b02.gif", "b02"},  // counted in characters, not in bytes
        {"C:\\Segni, note e appunti\\c03.gif", "i\\c"},
        {"C:\\i miei segni di Giz\xC3\xA0\xC3\xA8\\.gif", "?\\."},  // no text that a phrase can hold
        {"C:\\GR\\a01.gif", ""},
        {"C:\\Programmi\\Karvel\\GR\\a", "a"},
    };
    for (const auto& [path, sign] : kCases) {
        // In quotes, as a path with a comma must be.
        drive.write(kPages + "pre1.prf", quotedLine(path) + "\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
        strip.showFirstPage();
        EXPECT_EQ(strip.signOf(0), sign) << path;
    }
}

TEST_F(Favourites, PressingWritesTheSign)
{
    fill("e16b47");
    session.palette().press(0);
    strip.press(1);
    EXPECT_EQ(session.display().DisplayCodes(), "a01b47");
    EXPECT_EQ(session.palette().CurrentSignCode(), "b47");
    EXPECT_EQ(strip.LastFavouritePressed(), 1);
    session.display().undo();
    EXPECT_EQ(session.display().DisplayCodes(), "a01");
}

TEST_F(Favourites, MarkMovesOverVisibleButtonsAndWandersAfterADeletion)
{
    fill("a01a02a03");
    strip.openPanel();
    EXPECT_TRUE(strip.panelVisible());
    strip.markLeft();
    EXPECT_EQ(shown(), "a01* a02 a03 - - - - -");
    for (int i = 0; i < 3; ++i) {
        strip.markRight();
    }
    EXPECT_EQ(shown(), "a01 a02 a03* - - - - -");
    strip.markLeft();
    strip.deleteMarked();
    EXPECT_EQ(shown(), "a01 a03* - - - - - -");  // the caption stays,
    EXPECT_EQ(strip.SelectedFavourite(), 0);     // the mark goes back
    EXPECT_EQ(strip.FavouriteCount(), -1);
    EXPECT_EQ(drive.read(kStripPath), page("a01a03"));
    strip.deleteMarked();
    strip.closePanel();
    EXPECT_EQ(shown(), "a03 - - - - - - -");
    EXPECT_FALSE(strip.panelVisible());

    fill("a01a02a03a04a05a06a07a08");
    strip.openPanel();
    for (int i = 0; i < 9; ++i) {
        strip.markRight();
    }
    EXPECT_EQ(shown(), "a01 a02 a03 a04 a05 a06 a07 a08*");
    strip.deleteMarked();  // only the last place gets empty: one step back
    EXPECT_EQ(strip.SelectedFavourite(), 6);
    strip.deleteMarked();
    EXPECT_EQ(strip.SelectedFavourite(), 4);
    EXPECT_EQ(strip.Favourites()[5], gr("a06"));
    strip.deleteAll();
    EXPECT_EQ(shown(), "- - - - - - - -*");
    EXPECT_EQ(strip.FavouriteCount(), 0);
    EXPECT_EQ(drive.read(kStripPath), page(""));
}

TEST_F(Favourites, HidingKeepsTheSlots)
{
    EXPECT_TRUE(strip.empty());
    fill("a01a02");
    strip.hide();
    EXPECT_FALSE(strip.empty());
    EXPECT_EQ(shown(), "- - - - - - - -");
    session.palette().press(2);
    strip.insertCurrent();
    EXPECT_EQ(shown(), "a03 a02 - - - - - -");
    strip.hideForFacilitated();
    EXPECT_EQ(strip.Favourites()[1], gr("a02"));
    session.palette().press(3);
    strip.insertCurrent();
    EXPECT_EQ(shown(), "a04 - - - - - - -");  // the others hold no picture
}

TEST_F(Favourites, TurnsPagesBetweenItsBounds)
{
    fill("a01");
    drive.write(kPages + "PRE2.PRF", page("b01b02", 2));  // short, no third line
    const std::string two = "b01 b02 - - - - - -";
    const struct {
        std::int16_t from;
        bool next;
        const char* name;
        std::string shows;
    } kSteps[] = {
        {1, false, "pre1", "a01 - - - - - - -"},
        {1, true, "pre2", two},
        {2, true, "pre3", two},  // no file: the new name over the old favourites
        {99, true, "pre99", two},
        {11569, true, "pre11569", two},  // the code view leaves its count here
        {11569, false, "pre11568", two},
        {0, false, "pre0", two},
    };
    for (const auto& [from, next, name, shows] : kSteps) {
        session.FavouritePage = from;
        next ? strip.nextPage() : strip.previousPage();
        EXPECT_EQ(strip.pageName(), name);
        EXPECT_EQ(shown(), shows) << name;
    }
    strip.showFirstPage();
    EXPECT_EQ(strip.pageName(), "pre0");
}

TEST_F(Favourites, SavesNineLinesAndLoadsEight)
{
    fill("a01a02a03a04a05a06a07a08");
    strip.save("");
    strip.save(kPages + "mie");
    strip.save(kPages + "mie.prf");  // gets a second ending
    EXPECT_EQ(drive.read(kPages + "mie.prf"), page("a01a02a03a04a05a06a07a08", 9));
    EXPECT_EQ(drive.read(kPages + "mie.prf.prf"), page("a01a02a03a04a05a06a07a08", 9));
    EXPECT_THROW(strip.save("C:\\nowhere\\mie"), RuntimeError);

    strip.deleteAll();
    strip.load(kPages + "mie.PRF");
    strip.load("");
    EXPECT_EQ(shown(), "- - - - - - - -");
    strip.load(kPages + "mie.prf");
    for (const std::string& bytes :
         {std::string("x\r\ny\r\n"), "\"never closed" + page("a05"), page("b01b02", 7)}) {
        drive.write(kPages + "pre1.prf", bytes);
        EXPECT_THROW(strip.showFirstPage(), RuntimeError);
        EXPECT_THROW(strip.load(kPages + "pre1.prf"), RuntimeError);
        EXPECT_EQ(shown(), "a01 a02 a03 a04 a05 a06 a07 a08");
    }
}

}  // namespace
}  // namespace karvel

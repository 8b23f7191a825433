#include "settings/GlyphDirectoryChooser.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "settings/DirectoryListing.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

using testing::FakePictures;
using testing::RecordedWindows;
using testing::ScriptedUi;
using testing::TemporaryDrive;

constexpr const char* kSettings = "C:\\programmi\\Karvel\\settaggi\\conf2.cfg";

const MessageBox kRefusal{.title = "Messaggio",
                          .text = "E' possibile leggere i geroglifici solo da Hard disk e lettore CD",
                          .icon = Icon::Critical};
const MessageBox kNoDisc{.title = "Messaggio",
                         .text = "Attenzione: manca il cd nel lettore\ninserirlo e ricomporre il percorso",
                         .icon = Icon::Critical};

class Chooser : public ::testing::Test {
  protected:
    TemporaryDrive drive_;
    ScriptedUi ui_;
    FakePictures pictures_;
    RecordedWindows windows_;
    Session session_{drive_.files(), pictures_, ui_, windows_};
    GlyphDirectoryChooser& chooser_ = session_.directoryChooser();
};

TEST_F(Chooser, StartsFromTheDefaultAndKeepsItsCandidateForTheRun)
{
    chooser_.open();
    EXPECT_EQ(chooser_.DirectoryCandidate(), "C:\\Programmi\\Karvel\\GR");
    EXPECT_FALSE(chooser_.directoryEnabled());
    chooser_.editPath();
    EXPECT_TRUE(chooser_.directoryEnabled());
    EXPECT_EQ(chooser_.directory(), "C:\\Programmi\\Karvel\\GR");
    chooser_.directoryChanged("C:\\segni");
    chooser_.open();
    EXPECT_EQ(chooser_.DirectoryCandidate(), "C:\\segni\\GR");
    EXPECT_FALSE(chooser_.directoryEnabled());
    EXPECT_EQ(session_.images().GlyphDirectory(), "C:\\Programmi\\Karvel\\GR");
}

struct DriveCase {
    const char* drive;
    bool readable;
    const char* candidate;
    const char* directory;
    const char* shown;  ///< in the drive list
};

TEST_F(Chooser, ComposesTheCandidateOfADrive)
{
    const char* const from = "C:\\altrove";
    for (const DriveCase& c : {
             DriveCase{"C: [HARDDISK]", true, "C:\\Programmi\\Karvel\\GR", "C:\\Programmi\\Karvel\\",
                       "C: [HARDDISK]"},
             DriveCase{"C:", true, "C:\\Karvel\\GR", from, "C:"},
             DriveCase{"C:\\", true, "C:\\Karvel\\GR", from, "C:\\"},
             DriveCase{"d:\\", true, "d:\\Karvel\\GR", "d:\\", "d:\\"},
             DriveCase{"d:", true, "d:\\Karvel\\GR", "d:\\", "d:"},
             DriveCase{"D:\\", true, "D:\\GR", "D:\\", "D:\\"},  // the comparisons are exact
             DriveCase{"A:", true, "A:GR", from, "A:"},
             DriveCase{"e:\\", true, "e:\\GR", "e:\\", "e:\\"},
             DriveCase{"e:\\GR", true, "e:\\GR", from, "e:\\GR"},
         }) {
        chooser_.directoryChanged(from);
        chooser_.driveChanged(c.drive, c.readable);
        EXPECT_EQ(chooser_.DirectoryCandidate(), c.candidate) << c.drive;
        EXPECT_EQ(chooser_.directory(), c.directory) << c.drive;
        EXPECT_EQ(chooser_.drive(), c.shown) << c.drive;
    }
}

TEST_F(Chooser, RefusesDiskettesAndFallsBackOnTheSystemDrive)
{
    for (const char* const drive : {"a:", "b:"}) {
        chooser_.directoryChanged("C:\\altrove");
        ui_.expect(kRefusal);
        chooser_.driveChanged(drive, true);
        EXPECT_EQ(chooser_.DirectoryCandidate(), "C:\\Programmi\\Karvel\\GR");
        EXPECT_EQ(chooser_.drive(), "C: [HARDDISK]");
        EXPECT_EQ(chooser_.directory(), "C:\\Programmi\\Karvel\\");
    }
}

TEST_F(Chooser, SaysThatThereIsNoDiscAndStaysAtTheBareDrive)
{
    EXPECT_EQ(GlyphDirectoryChooser::toBeRead("d:\\"), "d:\\");
    EXPECT_EQ(GlyphDirectoryChooser::toBeRead("C: [HARDDISK]"), "");
    chooser_.directoryChanged("C:\\altrove");
    ui_.expect(kNoDisc);
    chooser_.driveChanged("d:\\", false);
    EXPECT_EQ(chooser_.DirectoryCandidate(), "d:\\");
    EXPECT_EQ(chooser_.directory(), "C:\\altrove");
}

TEST_F(Chooser, AddsGrToTheDirectoryPointedAt)
{
    for (const auto& [path, candidate] : {
             std::pair{"C:\\Programmi\\Karvel", "C:\\Programmi\\Karvel\\GR"},
             std::pair{"C:\\", "C:\\GR"},
             std::pair{"C:\\Programmi\\Karvel\\GR", "C:\\Programmi\\Karvel\\GR\\GR"},
             std::pair{"C:\\a\\gr", "C:\\a\\gr\\GR"},
         }) {
        chooser_.directoryChanged(path);
        EXPECT_EQ(chooser_.DirectoryCandidate(), candidate);
    }
}

TEST_F(Chooser, ListsTheDrivesThatExist)
{
    for (const char* const name : {"drive_a", "drive_d", "drive_e"}) {
        std::filesystem::create_directory(drive_.directory().parent_path() / name);
    }
    EXPECT_EQ(chooser_.drives(), (std::vector<std::string>{"a:", "C: [HARDDISK]", "d:\\", "e:\\"}));
}

TEST_F(Chooser, TakesTheCandidateOverOnConfirmationAlone)
{
    drive_.writeSettings();
    session_.palette().reset();
    session_.insertion()("a01", 0);
    chooser_.directoryChanged("C:\\segni nuovi");
    EXPECT_EQ(drive_.read(kSettings), "C:\\Programmi\\Karvel\\GR\r\n");
    EXPECT_TRUE(chooser_.confirm());
    EXPECT_EQ(drive_.read(kSettings), "C:\\segni nuovi\\GR\r\n");
    EXPECT_EQ(session_.palette().picture(0), "C:\\segni nuovi\\GR\\a01.gif");
    EXPECT_EQ(session_.display().cells()[0].path, "C:\\segni nuovi\\GR\\a01.gif");
}

TEST_F(Chooser, WritesEveryNameSoThatItIsReadBackWhole)
{
    drive_.writeSettings();
    for (const char* const path : {"C:\\Città, vecchia", "C:\\un \"nome\"", "C:\\a b  c"}) {
        chooser_.directoryChanged(path);
        ASSERT_TRUE(chooser_.confirm());
        SignImages images;
        images.restore(drive_.files());
        EXPECT_EQ(images.GlyphDirectory(), std::string(path) + "\\GR");
    }
    for (const auto& [path, characters] : {std::pair{"C:\\Ἑρμῆς", "Ἑρμῆς"}, std::pair{"C:\\a,\"b", "\""},
                                           std::pair{"C:\\a\nb", " (fine riga)"}}) {
        chooser_.directoryChanged(path);
        ui_.expect({.title = "ATTENZIONE",
                    .text = "Il nome di questa directory non può essere scritto nelle impostazioni.\n\n"
                            "Caratteri non ammessi: " +
                            std::string(characters),
                    .icon = Icon::Critical});
        EXPECT_FALSE(chooser_.confirm());
        EXPECT_EQ(session_.images().GlyphDirectory(), "C:\\a b  c\\GR");
        EXPECT_EQ(drive_.read(kSettings), "C:\\a b  c\\GR\r\n");
    }
}

TEST(DirectoryListing, ClimbsToTheNearestDirectoryThatExists)
{
    const TemporaryDrive drive;
    for (const char* const file : {"C:\\programmi\\Karvel\\GR\\a01.gif", "C:\\programmi\\Karvel\\altro\\x",
                                   "C:\\programmi\\Karvel\\Banco\\x", "C:\\programmi\\Karvel\\file"}) {
        drive.write(file, "");
    }
    const Drives& drives = drive.files().drives();
    const DirectoryListing there = listDirectory(drives, "C:\\Programmi\\Karvel\\");
    EXPECT_EQ(there.path, "C:\\Programmi\\Karvel");
    EXPECT_EQ(there.subdirectories, (std::vector<std::string>{"altro", "Banco", "GR"}));
    EXPECT_TRUE(there.readable && there.asWanted);

    const DirectoryListing above = listDirectory(drives, "C:\\Programmi\\manca\\GR");
    EXPECT_EQ(above.path, "C:\\Programmi");
    EXPECT_TRUE(above.readable);
    EXPECT_FALSE(above.asWanted);

    EXPECT_FALSE(listDirectory(drives, "e:\\Karvel\\GR").readable);
    EXPECT_EQ(listDirectory(drives, "C:\\").path, "C:\\");
}

TEST(DirectoryListing, NamesTheDirectoriesOnTheWay)
{
    EXPECT_EQ(directoryChain("C:\\a\\b c\\"), (std::vector<std::string>{"C:\\", "C:\\a", "C:\\a\\b c"}));
    EXPECT_EQ(directoryChain("d:\\"), std::vector<std::string>{"d:\\"});
    EXPECT_EQ(pathBelow("C:\\", "a"), "C:\\a");
    EXPECT_EQ(pathBelow("C:\\a", "b"), "C:\\a\\b");
}

}  // namespace
}  // namespace karvel

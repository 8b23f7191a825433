#include "settings/GlyphDirectoryChooser.hpp"

#include <gtest/gtest.h>

#include "app/Session.hpp"
#include "settings/DirectoryListing.hpp"
#include "support/ScriptedUi.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

const MessageBox kRefusal{.title = "Messaggio",
                          .text = "E' possibile leggere i geroglifici solo da Hard disk e lettore CD",
                          .icon = Icon::Critical};
const MessageBox kNoDisc{.title = "Messaggio",
                         .text = "Attenzione: manca il cd nel lettore\ninserirlo e ricomporre il percorso",
                         .icon = Icon::Critical};

class Chooser : public ::testing::Test {
  protected:
    testing::TemporaryDrive drive_;
    testing::ScriptedUi ui_;
    testing::FakePictures pictures_;
    testing::RecordedWindows windows_;
    Session session_{drive_.files(), pictures_, ui_, windows_};
    GlyphDirectoryChooser& chooser_ = session_.directoryChooser();
};

TEST_F(Chooser, ComposesTheCandidateOfADrive)
{
    const char* const from = "C:\\altrove";
    const struct {
        const char *drive, *candidate, *directory, *shown;  ///< `shown` in the drive list
        const MessageBox* box = nullptr;
        bool readable = true;
    } kCases[] = {
        {"C: [HARDDISK]", "C:\\Programmi\\Karvel\\GR", "C:\\Programmi\\Karvel\\", "C: [HARDDISK]"},
        {"C:\\", "C:\\Karvel\\GR", from, "C:\\"},
        {"d:\\", "d:\\Karvel\\GR", "d:\\", "d:\\"},
        {"d:", "d:\\Karvel\\GR", "d:\\", "d:"},
        {"d:\\", "d:\\GR", from, "d:\\", &kNoDisc, false},
        {"D:\\", "D:\\GR", "D:\\", "D:\\"},  // the comparisons are exact
        {"e:\\", "e:\\GR", "e:\\", "e:\\"},
        {"e:\\GR", "e:\\GR", from, "e:\\GR"},
        {"a:", "C:\\Programmi\\Karvel\\GR", "C:\\Programmi\\Karvel\\", "C: [HARDDISK]", &kRefusal},
        {"b:", "C:\\Programmi\\Karvel\\GR", "C:\\Programmi\\Karvel\\", "C: [HARDDISK]", &kRefusal},
    };
    for (const auto& [drive, candidate, directory, shown, box, readable] : kCases) {
        chooser_.directoryChanged(from);
        if (box != nullptr) {
            ui_.expect(*box);
        }
        chooser_.driveChanged(drive);
        if (chooser_.readingDisc()) {
            EXPECT_EQ(chooser_.DirectoryCandidate(), drive);  // shown while the drive is read
            chooser_.discRead(readable);
            EXPECT_FALSE(chooser_.readingDisc());
        }
        EXPECT_EQ(chooser_.DirectoryCandidate(), candidate) << drive;
        EXPECT_EQ(chooser_.directory(), directory) << drive;
        EXPECT_EQ(chooser_.drive(), shown) << drive;
    }
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
    chooser_.editPath();
    EXPECT_TRUE(chooser_.directoryEnabled());
    EXPECT_EQ(chooser_.directory(), "C:\\a\\gr\\GR");
    chooser_.open();
    EXPECT_EQ(chooser_.DirectoryCandidate(), "C:\\a\\gr\\GR");  // kept for the run
    EXPECT_FALSE(chooser_.directoryEnabled());
}

TEST_F(Chooser, ListsTheDrivesThatExist)
{
    for (const char* const name : {"drive_a", "drive_e"}) {
        std::filesystem::create_directory(drive_.directory().parent_path() / name);
    }
    EXPECT_EQ(chooser_.drives(), (std::vector<std::string>{"a:", "C: [HARDDISK]", "e:\\"}));
}

TEST_F(Chooser, TakesTheCandidateOverOnConfirmationWhereItCanBeWritten)
{
    drive_.writeSettings();
    session_.palette().reset();
    session_.insertion()("a01", 0);
    for (const char* const path : {"C:\\Città, vecchia", "C:\\un \"nome\"", "C:\\a b  c"}) {
        chooser_.directoryChanged(path);
        EXPECT_NE(session_.images().GlyphDirectory(), chooser_.DirectoryCandidate());
        ASSERT_TRUE(chooser_.confirm());
        SignImages images;
        images.restore(drive_.files());
        EXPECT_EQ(images.GlyphDirectory(), std::string(path) + "\\GR");
    }
    EXPECT_EQ(session_.palette().picture(0), "C:\\a b  c\\GR\\a01.gif");
    EXPECT_EQ(session_.display().cells()[0].path, "C:\\a b  c\\GR\\a01.gif");
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
        EXPECT_EQ(drive_.read(kGlyphDirectoryPath), "C:\\a b  c\\GR\r\n");
    }
}

TEST(DirectoryListing, FindsTheNearestDirectoryThatExists)
{
    const testing::TemporaryDrive drive;
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
    EXPECT_FALSE(above.asWanted);
    EXPECT_FALSE(listDirectory(drives, "e:\\Karvel\\GR").readable);
    EXPECT_EQ(directoryChain("C:\\a\\b c\\"), (std::vector<std::string>{"C:\\", "C:\\a", "C:\\a\\b c"}));
}

}  // namespace
}  // namespace karvel

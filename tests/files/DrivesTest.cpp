#include "files/Drives.hpp"

#include <gtest/gtest.h>

#include "base/RuntimeError.hpp"
#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;

class DrivesTest : public ::testing::Test {
  protected:
    DrivesTest()
    {
        for (const char* const name : {"drive_c/programmi/Karvel/GR", "drive_c/perché", "drive_d/Dati"}) {
            fs::create_directories(above / hostPath(name));
        }
        drive.write("C:\\programmi\\Karvel\\GR\\a01.gif", "");
    }

    testing::TemporaryDrive drive;
    fs::path above = drive.directory().parent_path();
    Drives drives{drive.directory()};
};

TEST_F(DrivesTest, FindsWhatAPathMeans)
{
    const struct {
        std::string_view path, host;
    } kCases[] = {
        {"C:\\programmi\\Karvel\\GR\\a01.gif", "drive_c/programmi/Karvel/GR/a01.gif"},
        {"c:\\PROGRAMMI\\kARVEL\\gr\\A01.GIF", "drive_c/programmi/Karvel/GR/a01.gif"},
        {"C:/programmi/karvel//gr/./a01.gif", "drive_c/programmi/Karvel/GR/a01.gif"},
        {"C:\\programmi \\Karvel  \\GR\\a01.gif ", "drive_c/programmi/Karvel/GR/a01.gif"},
        {"C:programmi\\KARVEL", "drive_c/programmi/Karvel"},
        {"C:\\PERCHÉ", "drive_c/perché"},  // accented letters have a case too
        {"C:\\programmi\\karvel\\Nuovo\\UNO.txt", "drive_c/programmi/Karvel/Nuovo/UNO.txt"},
        {"C:\\programmi\\..\\programmi\\KARVEL", "drive_c/programmi/Karvel"},
        {"C:\\..\\..\\etc\\passwd", "drive_c/etc/passwd"},  // nobody climbs out of the drive
        {"C:\\programmi\\.. \\.. \\../x", "drive_c/x"},     // nor with blanks behind the dots
        {"C:", "drive_c"},
        {"d:\\DATI", "drive_d/Dati"},
        {"E:\\x", "drive_e/x"},
    };
    for (const auto& [path, host] : kCases) {
        EXPECT_EQ(drives.toHost(path), above / hostPath(host)) << path;
    }
    EXPECT_EQ(drives.toHost("/srv/Dizio.TXT"), "/srv/Dizio.TXT");  // the host's own paths stay as they are
    for (const std::string_view impossible : {std::string_view(), std::string_view("C:\\a\0b", 6)}) {
        try {
            (void)drives.toHost(impossible);
            ADD_FAILURE();
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.value(), 52);
        }
    }
}

TEST_F(DrivesTest, ShowsHostPathsInTheSystemsForm)
{
    const struct {
        std::string_view host, path;
    } kCases[] = {
        {"drive_c/programmi/Karvel/GR/a01.gif", "C:\\programmi\\Karvel\\GR\\a01.gif"},
        {"drive_c", "C:\\"},
        {"drive_c/", "C:\\"},
        {"drive_c/programmi/./x/../Karvel", "C:\\programmi\\Karvel"},
        {"drive_c/..dati", "C:\\..dati"},
        {"drive_d/Dati", "D:\\Dati"},
    };
    for (const auto& [host, path] : kCases) {
        EXPECT_EQ(drives.toSystem(above / host), path);
    }
    const fs::path beside = above / "drive_c2" / "x";
    EXPECT_EQ(drives.toSystem(beside), utf8Path(beside));
    EXPECT_EQ(drives.toSystem(drive.directory() / ".." / "fuori"),
              utf8Path(drive.directory() / ".." / "fuori"));
}

TEST_F(DrivesTest, ListsWhatIsThere)
{
    EXPECT_EQ(drives.directoryName("C:\\PROGRAMMI\\KARVEL"), "Karvel");
    EXPECT_EQ(drives.directoryName("C:\\programmi\\Karvel\\GR\\a01.gif"), std::nullopt);
    EXPECT_EQ(drives.directoryName("C:\\programmi\\Altro"), std::nullopt);
    fs::create_directories(drive.directory() / "Altri");
    EXPECT_EQ(drives.subdirectories("c:\\"), (std::vector<std::string>{"Altri", "perché", "programmi"}));
    EXPECT_THROW((void)drives.subdirectories("C:\\Altro"), RuntimeError);
    EXPECT_EQ(drives.letters(), (std::vector{'c', 'd'}));
    EXPECT_EQ(Drives(above / "manca").letters(), std::vector<char>{'d'});
}

#if !defined(_WIN32)

TEST_F(DrivesTest, ChoosesBetweenNamesThatDifferInCaseOnly)
{
    for (const char* const name : {"Due", "DUE"}) {
        fs::create_directories(drive.directory() / name);
    }
    EXPECT_EQ(drives.toHost("C:\\Due"), drive.directory() / "Due");  // the spelling given comes first
    EXPECT_EQ(drives.toHost("C:\\due"), drive.directory() / "DUE");  // else always the same one
    EXPECT_EQ(drives.subdirectories("c:\\"), (std::vector<std::string>{"DUE", "Due", "perché", "programmi"}));
}

#endif

}  // namespace
}  // namespace karvel

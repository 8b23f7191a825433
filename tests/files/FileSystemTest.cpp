#include "files/FileSystem.hpp"

#include <gtest/gtest.h>

#include <set>

#include "files/Leftovers.hpp"
#include "support/Child.hpp"
#include "support/TemporaryDrive.hpp"

#if !defined(_WIN32)
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryDrive;

constexpr std::string_view kFile = "C:\\programmi\\Karvel\\dizio.txt";

class FileSystemTest : public ::testing::Test {
  protected:
    /// The number of the RuntimeError that `work` throws, 0 when it throws none.
    template <typename Work>
    static int errorOf(const Work& work)
    {
        try {
            work();
        } catch (const RuntimeError& error) {
            return error.value();
        }
        return 0;
    }

    [[nodiscard]] std::size_t filesBeside() const
    {
        const fs::directory_iterator entries(drive.host(kFile).parent_path());
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }

    TemporaryDrive drive;
    const FileSystem& files = drive.files();
};

TEST_F(FileSystemTest, ReplacesAFileAndLeavesNothingBesideIt)
{
    files.replace(kFile, "uno");
    files.replace("c:\\PROGRAMMI\\karvel\\DIZIO.TXT ", "due\r\n");
    EXPECT_EQ(drive.read(kFile), "due\r\n");
    files.replace(kFile, "", Durability::Process);
    EXPECT_EQ(drive.read(kFile), "");
    EXPECT_EQ(filesBeside(), 1U);
}

TEST_F(FileSystemTest, DeletesOnlyWhatAnEndedProgramLeft)
{
    const std::string directory = "C:\\programmi\\Karvel\\settaggi\\";
    const std::string own = utf8Path(besidePath("conf.cfg"));
    const std::string ended = "conf.cfg.~4294967292";  // no system numbers its processes so high
    const std::set<std::string> kept = {own,          "conf.cfg",           "conf.cfg.~",  ".~4294967292",
                                        "conf.cfg~1", "conf.cfg.~04294967", "conf.cfg.~1x"};
    for (const std::string& name : kept) {
        drive.write(directory + name, "x");
    }
    drive.write(directory + ended, "x");
    fs::create_directory(drive.host(directory + "nuovo.~4294967292"));
    removeLeftovers(files);
    EXPECT_EQ(drive.read(directory + ended), "(none)");
    EXPECT_TRUE(fs::exists(drive.host(directory + "nuovo.~4294967292")));
    for (const std::string& name : kept) {
        EXPECT_EQ(drive.read(directory + name), "x") << name;
    }
}

TEST_F(FileSystemTest, AppendsWholeLines)
{
    const struct {
        std::string_view before, after;
    } kCases[] = {
        {"", "nuova\r\n"},
        {"a\r\n", "a\r\nnuova\r\n"},
        {"a\n", "a\nnuova\r\n"},
        {"a\r", "a\rnuova\r\n"},
        {"a", "a\r\nnuova\r\n"},  // the last line end is missing: the new record must not glue to it
        {"\"a\"", "\"a\"\r\nnuova\r\n"},
    };
    for (const auto& [before, after] : kCases) {
        drive.write(kFile, before);
        files.append(kFile, "nuova\r\n");
        EXPECT_EQ(drive.read(kFile), after);
    }
    drive.write(kFile,
                "a\r\n" + std::string(std::size_t{17} << 20, '\n'));  // too many to put back on failure
    EXPECT_EQ(errorOf([&] { files.append(kFile, "nuova\r\n", 3); }), 6);
    files.append("C:\\programmi\\Karvel\\altro.txt", "x\r\n");
    EXPECT_EQ(drive.read("C:\\programmi\\Karvel\\altro.txt"), "x\r\n");
}

TEST_F(FileSystemTest, TellsWhyAFileCannotBeUsed)
{
    const std::string_view missing = "C:\\programmi\\Karvel\\manca.txt";
    const std::string_view nowhere = "C:\\programmi\\Manca\\x.txt";
    const std::string_view directory = "C:\\programmi\\Karvel";
    EXPECT_EQ(errorOf([&] { (void)files.open(missing); }), 53);
    EXPECT_EQ(errorOf([&] { files.remove(missing); }), 53);
    for (const auto& [path, error] : {std::pair{nowhere, 76}, std::pair{directory, 75}}) {
        EXPECT_EQ(errorOf([&] { (void)files.open(path); }), error);
        EXPECT_EQ(errorOf([&] { (void)files.readAll(path); }), error);
        EXPECT_EQ(errorOf([&] { files.replace(path, "x"); }), error);
        EXPECT_EQ(errorOf([&] { files.append(path, "x"); }), error);
        EXPECT_NE(errorOf([&] { files.remove(path); }), 0);
        EXPECT_FALSE(files.exists(path));
    }
    EXPECT_EQ(errorOf([&] { (void)files.open("C:\\programmi\\" + std::string(300, 'x')); }), 52);
    drive.write(kFile, "12345");
    EXPECT_EQ(files.readAll(kFile, 5), "12345");
    EXPECT_EQ(errorOf([&] { (void)files.readAll(kFile, 4); }), 6);
    files.remove(kFile);
    EXPECT_EQ(filesBeside(), 0U);
}

#if !defined(_WIN32)

/// Lets the process write no file longer than `bytes`, as a full disk would.
void limitFiles(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

TEST_F(FileSystemTest, AReadOnlyTreeIsNeverWrittenTo)
{
    drive.write(kFile, "uno\r\n");
    const fs::path file = drive.host(kFile);
    fs::permissions(file.parent_path(), fs::perms(0555));
    const auto asUser = [&](auto work) {
        return testing::inChild([&] {
            testing::becomeOrdinaryUser();
            work();
        });
    };
    fs::permissions(file, fs::perms(0444));
    EXPECT_EQ(asUser([&] { files.replace(kFile, "due\r\n"); }), 70);
    EXPECT_EQ(asUser([&] { files.append(kFile, "due\r\n"); }), 70);
    EXPECT_EQ(asUser([&] { files.remove(kFile); }), 70);
    EXPECT_EQ(asUser([&] { files.replace("C:\\programmi\\Karvel\\nuovo.txt", ""); }), 70);
    EXPECT_EQ(drive.read(kFile), "uno\r\n");

    // A file that may be written in a directory where nothing may be created: rewritten in its place, and
    // put back when that fails.
    fs::permissions(file, fs::perms(0666));
    EXPECT_EQ(asUser([&] { files.replace(kFile, "più lungo\r\n"); }), 0);
    EXPECT_EQ(drive.read(kFile), "più lungo\r\n");
    EXPECT_EQ(asUser([&] { files.replace(kFile, "corto"); }), 0);
    EXPECT_EQ(drive.read(kFile), "corto");
    EXPECT_EQ(asUser([&] {
                  limitFiles(20);
                  files.replace(kFile, std::string(1000, 'x'));
              }),
              61);
    EXPECT_EQ(drive.read(kFile), "corto");
    fs::permissions(file, fs::perms(0));
    EXPECT_EQ(asUser([&] { (void)files.open(kFile); }), 70);
    fs::permissions(file.parent_path(), fs::perms(0755));
}

TEST_F(FileSystemTest, KeepsLinksAndPermissions)
{
    const fs::path real = drive.directory() / "altrove.txt";
    files.replace(utf8Path(real), "uno");
    fs::permissions(real, fs::perms(0640));
    fs::create_symlink(real, drive.host(kFile));
    files.replace(kFile, "due");
    EXPECT_TRUE(fs::is_symlink(drive.host(kFile)));
    EXPECT_EQ(fs::status(real).permissions(), fs::perms(0640));
    EXPECT_EQ(files.readAll(utf8Path(real)), "due");
}

TEST_F(FileSystemTest, ALinkDoesNotLeadOutOfTheDrive)
{
    const fs::path above = drive.directory().parent_path();
    const fs::path outside = above / "altrove" / "uno.txt";
    fs::create_directory(outside.parent_path());
    files.replace(utf8Path(outside), "uno");
    drive.write("C:\\altri\\due.txt", "due");
    fs::create_directory_symlink(above, above / "vie");
    const FileSystem behindLink(Drives(above / "vie" / "drive_c"));  // the root may stand behind a link
    const struct {
        std::string_view link, to, file;
        int error;
    } kCases[] = {
        {"uno", "../altrove/uno.txt", "uno", 75},
        {"scheda", "../altrove", "scheda\\uno.txt", 75},
        {"scheda", "../altrove", "scheda\\nuovo.txt", 75},
        {"nuovo", "../altrove/nuovo.txt", "nuovo", 75},  // would be created by writing through the link
        {"nuovo", "../altrove/manca/nuovo.txt", "nuovo", 75},
        {"vicino", "../drive_cc", "vicino\\tre.txt", 75},
        {"tutto", "/", "TUTTO\\etc\\passwd", 75},
        {"dentro", "altri", "dentro\\due.txt", 0},
        {"dentro", "altri", "dentro\\nuovo.txt", 0},
        {"giro", "../drive_c/altri/due.txt", "giro", 0},
    };
    fs::create_directory(above / "drive_cc");  // its name begins like the drive's
    for (const FileSystem* const each : {&files, &behindLink}) {
        for (const auto& [link, to, file, error] : kCases) {
            const fs::path at = drive.directory() / link;
            fs::create_symlink(to, at);
            const std::string path = "C:\\" + std::string(file);
            EXPECT_EQ(errorOf([&] { each->append(path, "x"); }), error) << file;
            EXPECT_EQ(errorOf([&] { each->replace(path, "x"); }), error) << file;
            EXPECT_EQ(errorOf([&] { (void)each->readAll(path); }), error) << file;
            EXPECT_EQ(each->exists(path), error == 0) << file;
            EXPECT_EQ(each->canReplace(path), error == 0) << file;
            fs::remove(at);
        }
    }
    EXPECT_EQ(files.readAll(utf8Path(outside)), "uno");
    EXPECT_FALSE(fs::exists(outside.parent_path() / "nuovo.txt"));
}

TEST_F(FileSystemTest, APipeInTheFilesPlaceDoesNotHang)
{
    ASSERT_EQ(::mkfifo(drive.host(kFile).c_str(), 0666), 0);
    EXPECT_EQ(errorOf([&] { (void)files.open(kFile); }), 75);
    EXPECT_EQ(errorOf([&] { files.append(kFile, "x"); }), 75);
    EXPECT_EQ(errorOf([&] { files.replace(kFile, "x"); }), 75);
    EXPECT_TRUE(fs::is_fifo(drive.host(kFile)));
}

#endif

}  // namespace
}  // namespace karvel

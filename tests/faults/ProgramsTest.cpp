#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <random>
#include <set>
#include <thread>

#include "base/SignCode.hpp"
#include "dictionary/Verification.hpp"
#include "faults/Office.hpp"
#include "text/CodePage.hpp"
#include "words/DictionaryInsertion.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// How long the programs work against each other: two seconds, or KARVEL_FAULT_SECONDS.
std::chrono::seconds workingTime()
{
    const char* const given = std::getenv("KARVEL_FAULT_SECONDS");
    return std::chrono::seconds(given != nullptr ? std::atoi(given) : 2);
}

/// Signs that no other program and no other number has.
std::string signsOf(unsigned program, unsigned number)
{
    std::string signs = signCode(1 + program, 0);
    for (int digit = 0; digit < 4; ++digit, number /= kKeys) {
        signs += signCode(1, number % kKeys);
    }
    return signs;
}

/// Inserts entries until it is killed; tells each number that it has finished with.
pid_t startInserting(const FileSystem& files, unsigned program, unsigned first, const fs::path& finished)
{
    const pid_t child = ::fork();
    if (child == 0) {
        testing::Agreeing ui;
        LastResult last;
        DictionaryInsertion insertion(files, ui, last);
        std::ofstream told(finished, std::ios::app);
        for (unsigned number = first;; ++number) {
            const auto end =
                insertion.confirm(signsOf(program, number), {std::string(1 + number % 200, 'x'), "y", ""});
            if (end != DictionaryInsertion::End::Written) {
                std::fprintf(stderr, "%s\n", ui.told.c_str());
                ::_exit(1);
            }
            told << number << std::endl;
        }
    }
    return child;
}

TEST(Programs, ThatInsertAtOnceAndAreKilledLoseNoEntry)
{
    constexpr unsigned kPrograms = 3;
    const testing::TemporaryDrive drive;
    drive.write(kDictionaryPath, testing::record("p01", "la prima"));
    std::array<pid_t, kPrograms> programs{};
    std::array<unsigned, kPrograms> rounds{};
    const auto fileOf = [&](unsigned program) {
        return drive.directory() / ("finiti" + std::to_string(program));
    };
    const auto start = [&](unsigned program) {
        programs[program] =
            startInserting(drive.files(), program, 100'000 * rounds[program]++, fileOf(program));
    };
    for (unsigned program = 0; program < kPrograms; ++program) {
        start(program);
    }
    std::mt19937 random(11);
    int kills = 0;
    for (const auto end = Clock::now() + workingTime(); Clock::now() < end; ++kills) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20 + random() % 200));
        const unsigned program = random() % kPrograms;
        ::kill(programs[program], SIGKILL);
        int status = 0;
        ::waitpid(programs[program], &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "an insertion failed";
        start(program);
    }
    for (const pid_t program : programs) {
        ::kill(program, SIGKILL);
        ::waitpid(program, nullptr, 0);
    }

    const auto source = drive.files().open(kDictionaryPath);
    const Verification verified = verify(*source);
    EXPECT_FALSE(verified.fault) << verified.fault->line << ": " << verified.fault->reason;
    std::set<std::string> present;
    RecordReader reader(drive.files().open(kDictionaryPath));
    while (reader.next()) {
        EXPECT_TRUE(present.insert(std::string(reader.record().signs)).second)
            << "an entry stands there twice";
    }
    EXPECT_EQ(present.size(), verified.records);
    std::size_t finished = 0;
    for (unsigned program = 0; program < kPrograms; ++program) {
        std::ifstream numbers(fileOf(program));
        for (unsigned number = 0; numbers >> number; ++finished) {
            EXPECT_TRUE(present.contains(signsOf(program, number))) << program << " " << number;
        }
    }
    // The first entry, those whose end was told, and at most one for each program killed before it could
    // tell.
    EXPECT_GE(present.size(), finished + 1);
    EXPECT_LE(present.size(), finished + 1 + static_cast<std::size_t>(kills) + kPrograms);
    EXPECT_GT(finished, 20U);
    std::printf("%zu entries by %u programs, %d times killed\n", finished, kPrograms, kills);
}

/// The whole road of an installation that lies where other people's names have blanks and other letters.
TEST(Programs, WorkOnAPathWithBlanksAndOtherLetters)
{
    const testing::TemporaryDrive drive;
    for (const char* const name :
         {"con  due blanks", "Ἀίγυπτος 埃及 مصر", "l'apostrofo \"e\" le virgolette", "à è ì"}) {
        const fs::path place = drive.directory() / hostPath(name) / "drive_c";
        const auto run = [&](const std::string& arguments) {
            ::setenv("KARVEL_DRIVE_C", place.c_str(), 1);
            return std::system(
                (std::string("\"") + KARVEL_CLI + "\" " + arguments + " >/dev/null 2>&1").c_str());
        };
        SCOPED_TRACE(name);
        EXPECT_EQ(run("installa"), 0);
        EXPECT_EQ(run("verifica"), 0);
        EXPECT_EQ(run("cerca --modo esatto --gardiner F35-I9-D21"), 0);
        EXPECT_EQ(run("aggiungi p01p02p03 'città nuova'"), 0);
        EXPECT_EQ(run("italiano 'città nuova'"), 0);
        ::unsetenv("KARVEL_DRIVE_C");
        const FileSystem files{Drives(place)};
        files.replace("c:\\PROGRAMMI\\karvel\\Settaggi\\CONF.CFG", " 2\r\n");
        SearchModes modes;
        modes.restore(files);
        EXPECT_TRUE(modes.is(Mode::Split));
        EXPECT_EQ(files.drives().toSystem(files.drives().toHost("C:\\programmi\\Karvel\\GR\\a01.gif")),
                  "C:\\programmi\\Karvel\\GR\\a01.gif");
        fs::remove_all(place.parent_path());
    }
}

}  // namespace
}  // namespace karvel

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <set>
#include <thread>

#include "base/SignCode.hpp"
#include "dictionary/Verification.hpp"
#include "dictionary/WordFinder.hpp"
#include "faults/Installation.hpp"
#include "files/HostFile.hpp"

namespace karvel {
namespace {

using testing::Installation;
using testing::Operation;

/// Signs that no other program and no other number has.
std::string signsOf(unsigned program, unsigned number)
{
    return signCode(1 + program, 0) + signCode(1, number / kKeys) + signCode(1, number % kKeys);
}

TEST(Concurrent, ProgramsThatInsertAtTheSameTimeLoseNoEntry)
{
    constexpr unsigned kPrograms = 3;
    constexpr unsigned kEntries = 150;
    const testing::TemporaryDrive drive;
    drive.write(kDictionaryPath, testing::record("p01", "la prima"));
    for (unsigned program = 0; program < kPrograms; ++program) {
        if (::fork() == 0) {
            testing::RecordingUi ui;
            LastResult last;
            DictionaryInsertion insertion(drive.files(), ui, last);
            for (unsigned number = 0; number < kEntries; ++number) {
                (void)insertion.confirm(signsOf(program, number), {std::string(1 + number, 'x'), "y", ""});
            }
            ::_exit(0);
        }
    }
    while (::wait(nullptr) > 0) {
    }
    EXPECT_FALSE(verify(*drive.files().open(kDictionaryPath)).fault);
    std::multiset<std::string> present;
    RecordReader reader(drive.files().open(kDictionaryPath));
    while (reader.next()) {
        present.insert(std::string(reader.record().signs));
    }
    EXPECT_EQ(present.size(), 1 + kPrograms * kEntries);
    for (unsigned program = 0; program < kPrograms; ++program) {
        for (unsigned number = 0; number < kEntries; ++number) {
            EXPECT_EQ(present.count(signsOf(program, number)), 1U) << program << " " << number;
        }
    }
}

/// Adds entries without end as FileSystem::append does on a slow disk: in two pieces, over a blank line.
[[noreturn]] void addSlowly(const Installation& installation)
{
    const std::string entry = testing::record("c03", std::string(200, 'x'), "y", "z");
    for (;;) {
        HostFile file(installation.root() / "dizio.txt", HostFile::Mode::Append);
        file.lock();
        const std::uint64_t at = file.size() - std::string_view("\r\n").size();
        const std::size_t half = entry.size() / 2;
        file.writeAt(at, entry.substr(0, half));
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
        file.writeAt(at + half, entry.substr(half));
        file.writeAt(file.size(), "\r\n");
    }
}

/// Puts the same file whole, in one of two forms, until half a second is over.
void saveAgainAndAgain(const Installation& installation, char mark)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
    while (std::chrono::steady_clock::now() < end) {
        installation.drive.files().replace(kSearchModePath, std::string(5000, mark), Durability::Process);
    }
}

TEST(Concurrent, ASearchMeetsNoEntryThatIsOnlyHalfWritten)
{
    Installation installation;
    const pid_t other = ::fork();
    if (other == 0) {
        addSlowly(installation);
    }
    installation.ui.agrees = false;
    const FileSystem& files = installation.drive.files();
    for (int round = 0; round < 5; ++round) {
        for (const Operation& reading : testing::readings()) {
            const std::string told = installation.attempt(reading.work);
            // The count ends so in most files: it takes five fields for an entry.
            EXPECT_TRUE(reading.name == "count" || told.find("Input oltre") == std::string::npos)
                << reading.name << ": " << told;
        }
        const auto words = WordFinder(files).search("uno");
        words->readAll();
        EXPECT_FALSE(words->failure());
        EXPECT_FALSE(verify(*files.open(kDictionaryPath)).fault);
    }
    ::kill(other, SIGKILL);
    ::waitpid(other, nullptr, 0);
}

TEST(Concurrent, TheLastProgramThatSavesWins)
{
    const Installation installation;
    pid_t others[2];
    for (const char mark : {'1', '2'}) {
        if ((others[mark - '1'] = ::fork()) == 0) {
            saveAgainAndAgain(installation, mark);
            ::_exit(0);
        }
    }
    for (const pid_t other : others) {
        while (::waitpid(other, nullptr, WNOHANG) == 0) {
            const std::string bytes = installation.drive.files().readAll(kSearchModePath);
            EXPECT_TRUE(bytes.size() < 10 || bytes == std::string(5000, bytes.front()));
        }
    }
    EXPECT_EQ(installation.drive.files().readAll(kSearchModePath).size(), 5000U);
}

}  // namespace
}  // namespace karvel

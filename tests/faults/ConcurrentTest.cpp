#include <sys/wait.h>
#include <unistd.h>

#include <set>

#include "base/SignCode.hpp"
#include "dictionary/Verification.hpp"
#include "faults/Installation.hpp"

namespace karvel {
namespace {

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

}  // namespace
}  // namespace karvel

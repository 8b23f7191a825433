#include <sys/resource.h>

#include <csignal>

#include "app/Installer.hpp"
#include "faults/Office.hpp"
#include "support/Child.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::Deed;
using testing::Files;
using testing::Office;

/// While it lives this program can write no file longer than `bytes`, as on a disk that is full there.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

void forgetComfort(Files& files)
{
    std::erase_if(files, [](const auto& file) { return testing::comfort(file.first); });
}

/// The limits at which something may go wrong: every byte up to the longest file that the deed writes.
std::size_t highestLimit(const Files& before, const Files& after)
{
    std::size_t highest = 0;
    for (const auto& [name, bytes] : after) {
        const auto old = before.find(name);
        if (old == before.end() || old->second != bytes) {
            highest = std::max(highest, bytes.size());
        }
    }
    return highest;
}

class FullDiskTest : public ::testing::TestWithParam<std::size_t> {
  protected:
    FullDiskTest() { std::signal(SIGXFSZ, SIG_IGN); }
    ~FullDiskTest() override { std::signal(SIGXFSZ, SIG_DFL); }
};

TEST_P(FullDiskTest, LeavesEverythingAsItWasAndSaysSo)
{
    const Deed& deed = testing::deeds()[GetParam()];
    Files before;
    Files after;
    {
        Office office;
        before = office.files();
        office.attempt(deed.work);
        after = office.files();
    }
    ASSERT_NE(before, after);
    const std::size_t highest = highestLimit(before, after);
    forgetComfort(before);
    forgetComfort(after);
    int failures = 0;
    for (std::size_t limit = 0; limit <= highest; ++limit) {
        SCOPED_TRACE(std::string(deed.name) + " at byte " + std::to_string(limit));
        Office office;
        std::string told;
        {
            const FullDisk disk(limit);
            told = office.attempt(deed.work);
        }
        Files left = office.files();
        forgetComfort(left);
        const bool failed = told.find("Disco pieno") != std::string::npos;
        failures += failed ? 1 : 0;
        EXPECT_TRUE(left == (failed ? before : after)) << told;
        const fs::recursive_directory_iterator all(office.root());
        EXPECT_TRUE(std::none_of(begin(all), end(all), [](const auto& entry) {
            return entry.path().native().find(".~") != std::string::npos;
        })) << "something was left beside the files";
        if (HasFailure()) {
            break;
        }
    }
    EXPECT_GT(failures, 3);
    std::printf("%s: %d bytes where the disk may be full\n", deed.name, failures);
}

INSTANTIATE_TEST_SUITE_P(Deeds, FullDiskTest, ::testing::Range(std::size_t{0}, testing::deeds().size()));

TEST(FullDisk, NeverLeavesHalfAFileOfAnInstallation)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const testing::TemporaryDrive from;
    const testing::TemporaryDrive to;
    const fs::path tree = from.directory() / "tree";
    fs::create_directories(tree / "GR");
    from.files().replace(utf8Path(tree / "dizio.txt"), std::string(60, 'd'));
    from.files().replace(utf8Path(tree / "GR" / "a01.gif"), std::string(40, 'g'));
    for (std::size_t limit = 0; limit <= 60; ++limit) {
        int error = 0;
        {
            const FullDisk disk(limit);
            try {
                (void)installTree(tree, to.files().drives());
            } catch (const RuntimeError& failure) {
                error = failure.value();
            }
        }
        EXPECT_EQ(error, limit < 60 ? 61 : 0) << limit;
        for (const auto& entry : fs::recursive_directory_iterator(to.directory())) {
            EXPECT_TRUE(!entry.is_regular_file() || entry.file_size() == 60 || entry.file_size() == 40)
                << entry.path();
        }
        fs::remove_all(to.host("C:\\programmi\\Karvel"));
    }
    std::signal(SIGXFSZ, SIG_DFL);
}

}  // namespace
}  // namespace karvel

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <set>

#include "app/Installer.hpp"
#include "faults/Office.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::Deed;
using testing::Files;
using testing::Office;

enum class Killed { Yes, AtItsEnd, NotAllowed };

/// Whether the stopped `child` is about to make a system call that changes something on the disk.
bool aboutToChange(pid_t child)
{
    static const std::set<std::uint64_t> kChanges = {
        SYS_openat,   SYS_write,           SYS_pwrite64, SYS_ftruncate, SYS_fsync,    SYS_rename,
        SYS_unlink,   SYS_unlinkat,        SYS_mkdir,    SYS_fchmod,    SYS_fchmodat, SYS_chmod,
        SYS_sendfile, SYS_copy_file_range, SYS_close,    SYS_rmdir};
    __ptrace_syscall_info info{};
    ::ptrace(static_cast<__ptrace_request>(PTRACE_GET_SYSCALL_INFO), child, sizeof info, &info);
    return info.op == PTRACE_SYSCALL_INFO_ENTRY && kChanges.contains(info.entry.nr);
}

/// Runs `work` in a program of its own, which is killed when it is about to change something for the
/// `step`-th time, counted from 0. Reading between two changes leaves the disk as it is: these are all the
/// states that it goes through.
template <typename Work>
Killed killedAt(int step, const Work& work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
            ::_exit(77);
        }
        ::raise(SIGSTOP);
        work();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (int changes = 0; WIFSTOPPED(status);) {
        changes += WSTOPSIG(status) == (SIGTRAP | 0x80) && aboutToChange(child) ? 1 : 0;
        if (changes > step) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
            return Killed::Yes;
        }
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 77 ? Killed::NotAllowed : Killed::AtItsEnd;
}

class KillTest : public ::testing::TestWithParam<std::size_t> {};

TEST_P(KillTest, LeavesEveryFileOldOrNew)
{
    const Deed& deed = testing::deeds()[GetParam()];
    Files after;
    {
        Office office;
        office.attempt(deed.work);
        after = office.files();
    }
    Office office;
    const Files before = office.files();
    int step = 0;
    for (;; ++step) {
        SCOPED_TRACE(std::string(deed.name) + ", killed at step " + std::to_string(step));
        const Killed killed = killedAt(step, [&] { office.attempt(deed.work); });
        if (killed == Killed::NotAllowed) {
            GTEST_SKIP() << "this system lets nobody trace a program";
        }
        const Files left = office.files();
        for (const auto& [name, bytes] : before) {
            const auto found = left.find(name);
            const bool old = found != left.end() && found->second == bytes;
            const bool renewed = found == left.end()
                                     ? !after.contains(name)
                                     : after.contains(name) && found->second == after.at(name);
            const bool away = found == left.end() && testing::comfort(name);
            EXPECT_TRUE(old || renewed || away) << name << " is neither the old one nor the new one";
        }
        for (const auto& [name, bytes] : left) {
            EXPECT_TRUE(before.contains(name) || (after.contains(name) && after.at(name) == bytes)) << name;
        }
        if (killed == Killed::AtItsEnd || HasFailure()) {
            EXPECT_EQ(left, after);
            break;
        }
        // Everything as it was, for the next step.
        for (const auto& [name, bytes] : left) {
            if (!before.contains(name)) {
                fs::remove(office.root() / name);
            }
        }
        for (const auto& [name, bytes] : before) {
            if (const auto found = left.find(name); found == left.end() || found->second != bytes) {
                office.drive.write(utf8Path(office.root() / name), bytes);
            }
        }
    }
    EXPECT_GT(step, 4);
    std::printf("%s: killed at %d steps\n", deed.name, step);
}

INSTANTIATE_TEST_SUITE_P(Deeds, KillTest, ::testing::Range(std::size_t{0}, testing::deeds().size()));

TEST(Kill, NeverLeavesHalfAFileOfAnInstallation)
{
    const testing::TemporaryDrive from;
    const fs::path tree = from.directory() / "tree";
    fs::create_directories(tree / "GR");
    from.files().replace(utf8Path(tree / "dizio.txt"), std::string(60, 'd'));
    from.files().replace(utf8Path(tree / "GR" / "a01.gif"), std::string(40, 'g'));
    const testing::TemporaryDrive to;
    Killed killed = Killed::Yes;
    int step = 0;
    for (; killed == Killed::Yes; ++step) {
        fs::remove_all(to.host("C:\\programmi\\Karvel"));
        killed = killedAt(step, [&] { (void)installTree(tree, to.files().drives()); });
        if (killed == Killed::NotAllowed) {
            GTEST_SKIP() << "this system lets nobody trace a program";
        }
        for (const auto& entry : fs::recursive_directory_iterator(to.directory())) {
            const bool named = entry.path().extension() == ".txt" || entry.path().extension() == ".gif";
            EXPECT_TRUE(!named || entry.file_size() == 60 || entry.file_size() == 40) << entry.path();
        }
    }
    EXPECT_GT(step, 4);
    std::printf("installation: killed at %d steps\n", step - 1);
}

}  // namespace
}  // namespace karvel

#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <set>

#include "app/Installer.hpp"
#include "faults/Installation.hpp"
#include "files/Leftovers.hpp"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using testing::Files;
using testing::Installation;
using testing::Operation;

enum class End : int { Done = 0, ToldFullDisk = 1, NotAllowed = 2, Killed = 3 };

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

/// Lets the stopped `child` run until it is about to change the disk for the time `point`, counted from 0,
/// and kills it there. Between two changes the disk stays as it is: these points are all states of the disk.
End killAt(pid_t child, int point, int& status)
{
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (int changes = 0; WIFSTOPPED(status);) {
        changes += WSTOPSIG(status) == (SIGTRAP | 0x80) && aboutToChange(child) ? 1 : 0;
        if (changes > point) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
            return End::Killed;
        }
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
    }
    return End::Done;
}

/// From here on this process can make no file longer than `bytes`, as on a disk that is full there.
void fillDisk(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

/// Runs `operation` in a process of its own, interrupted at `point`: a number of changes to the disk (kill),
/// or the length in bytes at which no file can grow (full disk).
End interrupted(Installation& installation, const Operation& operation, bool kill, int point)
{
    const pid_t child = ::fork();
    if (child == 0) {
        if (kill && ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
            ::_exit(static_cast<int>(End::NotAllowed));
        }
        if (kill) {
            ::raise(SIGSTOP);
        } else {
            fillDisk(static_cast<rlim_t>(point));
        }
        const bool told = installation.attempt(operation.work).find("Disco pieno") != std::string::npos;
        ::_exit(static_cast<int>(told ? End::ToldFullDisk : End::Done));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (kill && WIFSTOPPED(status) && killAt(child, point, status) == End::Killed) {
        return End::Killed;
    }
    EXPECT_TRUE(WIFEXITED(status)) << "the program broke off";
    return static_cast<End>(WEXITSTATUS(status));
}

/// Every file is the old one or the new one.
void expectOldOrNew(const Files& before, const Files& after, const Files& left)
{
    const auto bytes = [](const Files& files, const std::string& name) {
        const auto found = files.find(name);
        return found == files.end() ? std::string("(none)") : found->second;
    };
    for (const Files* const files : {&before, &after, &left}) {
        for (const auto& [name, content] : *files) {
            const std::string now = bytes(left, name);
            EXPECT_TRUE(now == bytes(before, name) || now == bytes(after, name) ||
                        (now == "(none)" && testing::isCache(name)))
                << name << " is neither the old one nor the new one";
        }
    }
}

void restore(const Installation& installation, const Files& before)
{
    for (const auto& entry : fs::recursive_directory_iterator(installation.root())) {
        if (entry.is_regular_file() &&
            !before.contains(utf8Path(entry.path().lexically_relative(installation.root())))) {
            fs::remove(entry.path());
        }
    }
    for (const auto& [name, bytes] : before) {
        installation.drive.write(utf8Path(installation.root() / name), bytes);
    }
}

std::vector<Operation> interruptible()
{
    std::vector<Operation> all = testing::writings();
    all.push_back(
        {"install", [](Installation& i) { (void)installTree(i.dataTree(), Drives(i.root() / "other")); }});
    return all;
}

/// The longest file that the operation writes, in bytes.
std::size_t longestWritten(const Files& before, const Files& after)
{
    std::size_t longest = 0;
    for (const auto& [name, bytes] : after) {
        const auto old = before.find(name);
        longest = old != before.end() && old->second == bytes ? longest : std::max(longest, bytes.size());
    }
    return longest;
}

Files withoutCaches(Files files)
{
    std::erase_if(files, [](const auto& file) { return testing::isCache(file.first); });
    return files;
}

class Interrupted : public ::testing::TestWithParam<std::size_t> {
  protected:
    void everywhere(bool kill)
    {
        Files after;
        {
            Installation other;
            other.attempt(operation_.work);
            after = other.files();
        }
        Installation installation;
        const Files before = installation.files();
        ASSERT_NE(before, after);
        const int step = kill ? 1 : 1 + static_cast<int>(longestWritten(before, after) / 20);
        End end = End::Killed;
        int point = 0;
        for (; end != End::Done && end != End::NotAllowed && !HasFailure(); point += step) {
            SCOPED_TRACE(std::string(operation_.name) + " interrupted at " + std::to_string(point));
            restore(installation, before);
            end = interrupted(installation, operation_, kill, point);
            const Files left = installation.files();
            expectOldOrNew(before, after, left);
            if (kill) {
                removeLeftovers(installation.drive.files());
                removeLeftovers(FileSystem(Drives(installation.root() / "other")));
                EXPECT_EQ(temporaryFiles(installation), 0);
            } else {
                EXPECT_EQ(withoutCaches(left), withoutCaches(end == End::Done ? after : before));
                EXPECT_EQ(temporaryFiles(installation), 0);
            }
        }
        EXPECT_TRUE(point > 3 * step || end == End::NotAllowed);
    }

    static int temporaryFiles(const Installation& installation)
    {
        const fs::recursive_directory_iterator all(installation.root());
        return static_cast<int>(std::count_if(
            begin(all), fs::recursive_directory_iterator(),
            [](const auto& entry) { return entry.path().native().find(".~") != std::string::npos; }));
    }

    const Operation operation_ = interruptible()[GetParam()];
};

TEST_P(Interrupted, ByAFullDiskChangesNothingAndSaysSo)
{
    everywhere(false);
}

TEST_P(Interrupted, ByAKillLeavesEveryFileOldOrNew)
{
    everywhere(true);
}

INSTANTIATE_TEST_SUITE_P(Writings, Interrupted, ::testing::Range(std::size_t{0}, interruptible().size()));

}  // namespace
}  // namespace karvel

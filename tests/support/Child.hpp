#pragma once

#if !defined(_WIN32)

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "base/RuntimeError.hpp"

namespace karvel::testing {

/// Runs `work` in a process of its own, where it may give up rights and set limits. Returns 0, or the number
/// of the RuntimeError that `work` threw, or -1 when it ended in any other way.
template <typename Work>
int inChild(const Work& work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        int status = 0;
        try {
            work();
        } catch (const RuntimeError& error) {
            status = error.value();
        }
        ::_exit(status);
    }
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The superuser may write everywhere; the tests of forbidden files are an ordinary user's.
inline void becomeOrdinaryUser()
{
    constexpr uid_t kNobody = 65534;
    if (::geteuid() == 0 && ::setuid(kNobody) != 0) {
        ::_exit(255);
    }
}

}  // namespace karvel::testing

#endif

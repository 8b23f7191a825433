#include "windows/monkey/Trail.hpp"

#include <pthread.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>

// The sanitizers' last word before they end the program; there is none in a build without them.
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

// The undefined-behaviour sanitizer would end the program in silence.
extern "C" const char* __ubsan_default_options();
extern "C" const char* __ubsan_default_options()
{
    return "abort_on_error=1:print_stacktrace=1";
}

namespace karvel::testing {

namespace {

Trail* theOneTold = nullptr;  // a signal carries no object

void tellAndGo()
{
    if (Trail* const trail = theOneTold) {
        theOneTold = nullptr;  // one that breaks while it tells does not tell again
        trail->tell();
    }
}

void onAbort(int /*signal*/)
{
    tellAndGo();
    std::_Exit(134);
}

}  // namespace

Trail::Trail(std::string head) : head_(std::move(head)), watched_(pthread_self())
{
    theOneTold = this;
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(tellAndGo);
    }
    std::signal(SIGABRT, onAbort);
    watch_ = std::thread([this] { watch(); });
}

Trail::~Trail()
{
    {
        const std::lock_guard lock(guard_);
        over_ = true;
    }
    wake_.notify_one();
    watch_.join();
    std::signal(SIGABRT, SIG_DFL);
    theOneTold = nullptr;
}

void Trail::add(std::string step)
{
    const std::lock_guard lock(guard_);
    last_.push_back(std::to_string(++steps_) + "  " + std::move(step));
    if (last_.size() > kKept) {
        last_.pop_front();
    }
}

void Trail::more(const std::string& detail)
{
    const std::lock_guard lock(guard_);
    if (!last_.empty()) {
        last_.back() += "  " + detail;
    }
}

void Trail::tell()
{
    // Not locked for long: whoever broke may hold it.
    const std::unique_lock lock(guard_, std::try_to_lock);
    std::fprintf(stderr, "\n%s\n", head_.c_str());
    for (const std::string& step : last_) {
        std::fprintf(stderr, "    %s\n", step.c_str());
    }
}

/// Five seconds of work, or two minutes of waiting on a machine that has much else to do, are a hang.
void Trail::watch()
{
    constexpr double kWork = 5;
    constexpr int kWait = 120;
    clockid_t clock{};
    if (pthread_getcpuclockid(watched_, &clock) != 0) {
        return;
    }
    const auto worked = [clock] {
        timespec now{};
        clock_gettime(clock, &now);
        return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
    };
    std::uint64_t seen = 0;
    double before = worked();
    int waited = 0;
    std::unique_lock lock(guard_);
    while (!wake_.wait_for(lock, std::chrono::seconds(1), [this] { return over_; })) {
        if (steps_ != seen) {
            seen = steps_;
            before = worked();
            waited = 0;
        } else if (++waited >= kWait || worked() - before > kWork) {
            std::fprintf(stderr, "The last event does not end.\n");
            lock.unlock();
            std::abort();
        }
    }
}

}  // namespace karvel::testing

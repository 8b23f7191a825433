#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace karvel::testing {

/// What was done last, kept to be told when something breaks: by the test, by a sanitizer or a signal that
/// ends the program, or by the watch that finds it hanging.
class Trail {
  public:
    /// `head` is told first: how to do it all again.
    explicit Trail(std::string head);
    ~Trail();
    Trail(const Trail&) = delete;
    Trail& operator=(const Trail&) = delete;

    void add(std::string step);
    /// Adds to the last step what came of it.
    void more(const std::string& detail);
    [[nodiscard]] std::uint64_t steps() const { return steps_; }
    /// Head and last steps on standard error.
    void tell();

  private:
    static constexpr std::size_t kKept = 30;

    void watch();

    std::string head_;
    std::atomic<std::uint64_t> steps_ = 0;
    std::mutex guard_;
    std::deque<std::string> last_;
    std::condition_variable wake_;
    bool over_ = false;
    pthread_t watched_;
    std::thread watch_;
};

}  // namespace karvel::testing

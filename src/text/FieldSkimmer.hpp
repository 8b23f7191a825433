#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "text/RegionScanner.hpp"

namespace karvel {

/// How a file is skimmed; sizes in bytes.
struct SkimShape {
    std::size_t least = 1U << 20;    ///< of a file that is worth it
    std::size_t region = 32U << 10;  ///< looked through at a time
    std::size_t reach = 2U << 10;    ///< the longest field that may cross the border of two regions
    unsigned helpers = 3;            ///< threads beside the caller's, if there are processors for them
};

/// Passes over the records of a large file in which no field is wanted, on several processors at once.
///
/// It finds only that nothing is there. Where something is, or where the file does not have the usual form,
/// nothing is passed over: such parts are for the reader of fields.
class FieldSkimmer {
  public:
    /// True for a source and a wanted text for which there can be a skimmer.
    [[nodiscard]] static bool fits(const ByteSource& source, std::string_view text, const SkimShape& shape);

    /// `source`, which must be readable at any place, must outlive the skimmer; its size is taken once.
    FieldSkimmer(const ByteSource& source, Wanted wanted, const SkimShape& shape);
    ~FieldSkimmer();
    FieldSkimmer(const FieldSkimmer&) = delete;
    FieldSkimmer& operator=(const FieldSkimmer&) = delete;

    /// A record of four fields begins `record` bytes from the start. Returns where a later one begins before
    /// which no field is wanted and with which at least one more whole record follows; `record` itself
    /// when there is none or it is not worth the search. Does not go very far at a time, so that the caller
    /// can tell how far he has come. Never fails.
    [[nodiscard]] std::uint64_t pass(std::uint64_t record);

  private:
    static constexpr std::size_t kAhead = 128;     ///< regions that helpers may be ahead
    static constexpr std::uint64_t kStride = 128;  ///< regions passed over at a time

    struct Found {
        std::uint64_t region = 0;  ///< 0: none
        bool known = false;
        RegionFacts facts;
    };

    /// Regions that one thread looks through without asking again: whoever finds the lock taken is woken
    /// late.
    struct Batch {
        static constexpr std::uint64_t kMost = 8;

        std::uint64_t first = 0;
        std::uint64_t count = 0;
        std::array<RegionFacts, kMost> facts;
    };

    void help();
    void ask(std::uint64_t region);
    void beginAgainAt(std::uint64_t place, std::uint64_t passed);
    [[nodiscard]] RegionFacts facts(std::uint64_t region);
    [[nodiscard]] bool claim(Batch& batch);
    void lookThrough(Batch& batch, RegionScanner& scanner, std::unique_lock<std::mutex>& lock);
    void startHelpers();

    const ByteSource& source_;
    Wanted wanted_;
    SkimShape shape_;
    RegionScanner scanner_;
    std::uint64_t regions_;       ///< whose end is known to lie in the file
    std::uint64_t resume_ = 0;    ///< before this place there is nothing to pass over
    std::uint64_t patience_ = 0;  ///< bytes to be read before the next attempt, more with every vain one

    bool begun_ = false;

    std::mutex mutex_;  ///< for all that follows
    std::condition_variable work_;
    std::condition_variable done_;
    std::array<Found, kAhead> found_;
    std::uint64_t first_ = 0;  ///< region that is still asked for
    std::uint64_t next_ = 0;   ///< region that nobody has taken yet
    std::size_t here_ = 0;     ///< helpers that have begun
    bool stop_ = false;
    std::vector<std::thread> helpers_;
};

}  // namespace karvel

#include "text/FieldSkimmer.hpp"

#include <algorithm>
#include <chrono>
#include <system_error>
#include <utility>

namespace karvel {

bool FieldSkimmer::fits(const ByteSource& source, std::string_view text, const SkimShape& shape)
{
    const bool inOneField =
        text.size() < 3 || text.substr(1, text.size() - 2).find('"') == std::string_view::npos;
    return !text.empty() && inOneField && source.anywhere() && source.size() >= shape.least;
}

FieldSkimmer::FieldSkimmer(const ByteSource& source, Wanted wanted, const SkimShape& shape)
    : source_(source),
      wanted_(std::move(wanted)),
      shape_(shape),
      scanner_(source, wanted_, shape.region, shape.reach),
      regions_(source.size() / shape.region)
{
}

FieldSkimmer::~FieldSkimmer()
{
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
    }
    work_.notify_all();
    for (std::thread& helper : helpers_) {
        helper.join();
    }
}

std::uint64_t FieldSkimmer::pass(std::uint64_t record)
{
    std::uint64_t region = scanner_.regionOf(record);
    if (record < resume_ || region >= regions_) {
        return record;
    }
    if (!begun_) {
        begun_ = true;
        startHelpers();
    }
    ask(region + 1);
    const std::uint64_t begin = region;
    std::uint64_t reached = record;
    std::uint64_t fields = 0;
    for (RegionFacts seen = scanner_.from(record);; seen = facts(region)) {
        fields += seen.fields;
        // The last record that ends here is left to be read, whatever follows.
        reached = std::max(reached, seen.late[fields % 4]);
        if (!seen.clear) {
            beginAgainAt(seen.closer, seen.closer - record);
            return reached;
        }
        ++region;
        if (region >= regions_ || region - begin == kStride) {
            return reached;
        }
    }
}

/// Where the text stands in many places, looking for parts without it is in vain.
void FieldSkimmer::beginAgainAt(std::uint64_t place, std::uint64_t passed)
{
    constexpr std::uint64_t kLeast = 4 << 10;
    constexpr std::uint64_t kMost = 4 << 20;
    const bool worth = passed >= shape_.region / 2;
    patience_ = worth ? 0 : std::clamp(2 * patience_, kLeast, kMost);
    resume_ = place + patience_;
}

/// Lets the helpers begin at `region`, if they are not farther.
void FieldSkimmer::ask(std::uint64_t region)
{
    {
        const std::lock_guard lock(mutex_);
        first_ = region;
        next_ = std::max(next_, region);
    }
    work_.notify_all();
}

/// Looks through regions until what is asked for is known: others, while a helper has that one.
RegionFacts FieldSkimmer::facts(std::uint64_t region)
{
    ask(region);
    std::unique_lock lock(mutex_);
    const Found& found = found_[region % kAhead];
    while (found.region != region || !found.known) {
        Batch batch;
        if (found.region != region && next_ > region) {
            batch = {.first = region, .count = 1, .facts = {}};  // asked for again after a step back
            found_[region % kAhead] = {.region = region, .known = false, .facts = {}};
        } else if (!claim(batch)) {
            done_.wait(lock);
            continue;
        }
        lookThrough(batch, scanner_, lock);
    }
    return found.facts;
}

/// Takes the next regions that nobody looks at; false when those ahead are enough. With `mutex_` held.
bool FieldSkimmer::claim(Batch& batch)
{
    const std::uint64_t end = std::min(first_ + kAhead, regions_);
    if (next_ >= end) {
        return false;
    }
    batch.first = next_;
    batch.count = std::min(Batch::kMost, end - next_);
    next_ += batch.count;
    for (std::uint64_t region = batch.first; region < next_; ++region) {
        found_[region % kAhead] = {.region = region, .known = false, .facts = {}};
    }
    return true;
}

/// Looks and keeps what it sees. With `lock` held, but for the looking.
void FieldSkimmer::lookThrough(Batch& batch, RegionScanner& scanner, std::unique_lock<std::mutex>& lock)
{
    lock.unlock();
    for (std::uint64_t i = 0; i < batch.count; ++i) {
        batch.facts[i] = scanner.whole(batch.first + i);
    }
    lock.lock();
    for (std::uint64_t i = 0; i < batch.count; ++i) {
        Found& found = found_[(batch.first + i) % kAhead];
        if (found.region == batch.first + i) {  // else nobody asks for it any more
            found.facts = batch.facts[i];
            found.known = true;
        }
    }
    done_.notify_one();
}

void FieldSkimmer::help()
{
    RegionScanner scanner(source_, wanted_, shape_.region, shape_.reach);
    std::unique_lock lock(mutex_);
    ++here_;
    done_.notify_one();
    while (!stop_) {
        Batch batch;
        if (claim(batch)) {
            lookThrough(batch, scanner, lock);
        } else {
            work_.wait(lock);
        }
    }
}

void FieldSkimmer::startHelpers()
{
    constexpr std::chrono::milliseconds kMostPatience(1);
    const unsigned processors = std::max(std::thread::hardware_concurrency(), 1U);
    try {
        for (unsigned count = std::min(shape_.helpers, processors - 1); count > 0; --count) {
            helpers_.emplace_back([this] { help(); });
        }
    } catch (const std::system_error&) {
        // Fewer do it too.
    }
    // A new thread may be put behind its maker on the same processor, for milliseconds, and the other stays
    // idle. Whoever waits makes room.
    std::unique_lock lock(mutex_);
    done_.wait_for(lock, kMostPatience, [this] { return here_ == helpers_.size(); });
}

}  // namespace karvel

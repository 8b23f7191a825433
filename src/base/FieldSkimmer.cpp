#include "base/FieldSkimmer.hpp"

#include <algorithm>
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

/// Looks through regions until what is asked for is known: also others, when a helper has that one.
RegionFacts FieldSkimmer::facts(std::uint64_t region)
{
    ask(region);
    std::unique_lock lock(mutex_);
    Found& found = found_[region % kAhead];
    while (found.region != region || !found.known) {
        std::uint64_t other = region;
        if (found.region != region && next_ > region) {
            found = {.region = region, .known = false, .facts = {}};  // asked for again after a step back
        } else if (!claim(other)) {
            done_.wait(lock);
            continue;
        }
        lock.unlock();
        const RegionFacts facts = scanner_.whole(other);
        lock.lock();
        keep(other, facts);
    }
    return found.facts;
}

/// Takes the next region that nobody looks at; false when those ahead are enough. With `mutex_` held.
bool FieldSkimmer::claim(std::uint64_t& region)
{
    if (next_ >= std::min(first_ + kAhead, regions_)) {
        return false;
    }
    region = next_++;
    found_[region % kAhead] = {.region = region, .known = false, .facts = {}};
    return true;
}

/// With `mutex_` held.
void FieldSkimmer::keep(std::uint64_t region, const RegionFacts& facts)
{
    Found& found = found_[region % kAhead];
    if (found.region == region) {  // else nobody asks for it any more
        found.facts = facts;
        found.known = true;
        done_.notify_one();
    }
}

void FieldSkimmer::help()
{
    RegionScanner scanner(source_, wanted_, shape_.region, shape_.reach);
    std::unique_lock lock(mutex_);
    while (!stop_) {
        std::uint64_t region = 0;
        if (!claim(region)) {
            work_.wait(lock);
            continue;
        }
        lock.unlock();
        const RegionFacts facts = scanner.whole(region);
        lock.lock();
        keep(region, facts);
    }
}

void FieldSkimmer::startHelpers()
{
    const unsigned processors = std::max(std::thread::hardware_concurrency(), 1U);
    try {
        for (unsigned count = std::min(shape_.helpers, processors - 1); count > 0; --count) {
            helpers_.emplace_back([this] { help(); });
        }
    } catch (const std::system_error&) {
        return;  // fewer do it too
    }
}

}  // namespace karvel

#include "text/RegionScanner.hpp"

#include <algorithm>
#include <cstring>

#include "text/ByteScan.hpp"

namespace karvel {

namespace {

/// Bytes looked at in one go. A field ends at every third byte at most: one byte can count them.
constexpr std::size_t kStretch = 512;

/// Where the whole text stands, its beginning stands too.
constexpr std::size_t kLongestText = 64;

/// A region must hold so many fields that a whole record is left of it wherever in a record it ends.
constexpr std::uint64_t kLeastFields = 8;

struct Look {
    std::uint8_t odd = 0;     ///< a quote that neither begins nor ends a field of the usual form
    std::uint8_t likely = 0;  ///< the text may begin here
    std::uint8_t ends = 0;    ///< ends of fields
};

/// Three bytes before `bytes` and behind the last one are looked at too, and the text's length behind that.
/// No branch depends on the bytes, so that the compiler can take as many of them at once as the processor.
[[gnu::always_inline]] inline Look lookAt(const char* bytes, std::size_t count, const TextProbes& probes)
{
    const char* const before = bytes - 3;
    const char* const a = bytes + probes.at[0];
    const char* const b = bytes + probes.at[1];
    const char* const c = bytes + probes.at[2];
    const char* const d = bytes + probes.at[3];
    const auto [first, second, third, fourth] = probes.byte;
    Look seen;
    for (std::size_t i = 0; i < count; ++i) {
        const bool quote = bytes[i] == '"';
        const bool end = quote & (bytes[i + 1] == '\r') & (bytes[i + 2] == '\n');
        const bool begin = (before[i] == '"') & (before[i + 1] == '\r') & (before[i + 2] == '\n');
        const bool likely = (a[i] == first) & (b[i] == second) & (c[i] == third) & (d[i] == fourth);
        // Behind the end of a field another must begin, and no quote may both begin and end one.
        seen.odd = static_cast<std::uint8_t>(seen.odd | (quote ^ end ^ begin));
        seen.ends = static_cast<std::uint8_t>(seen.ends + end);
        seen.likely = static_cast<std::uint8_t>(seen.likely | likely);
    }
    return seen;
}

bool fieldEndsAt(const char* at)
{
    return at[0] == '"' && at[1] == '\r' && at[2] == '\n';
}

using LookAtStretch = Look (*)(const char*, const TextProbes&);

Look lookAtStretch(const char* bytes, const TextProbes& probes)
{
    return lookAt(bytes, kStretch, probes);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] Look lookAtStretchAvx2(const char* bytes, const TextProbes& probes)
{
    return lookAt(bytes, kStretch, probes);
}

/// Twice as many bytes at once, where the processor can: not all that the program runs on do.
LookAtStretch fastestLook()
{
    return __builtin_cpu_supports("avx2") != 0 ? lookAtStretchAvx2 : lookAtStretch;
}
#else
LookAtStretch fastestLook()
{
    return lookAtStretch;
}
#endif

}  // namespace

RegionScanner::RegionScanner(const ByteSource& source, const Wanted& wanted, std::size_t region,
                             std::size_t reach)
    : source_(source),
      wanted_(wanted),
      text_(std::string_view(wanted.text).substr(0, kLongestText)),
      region_(region),
      reach_(reach),
      buffer_(kEnd + region + kEnd + reach + kLongestText + kScanPadding),
      bytes_(buffer_.data() + kEnd),
      end_(bytes_),
      border_(bytes_)
{
    // The start of the file is a place where a field begins, as if one had ended before it.
    std::memcpy(buffer_.data(), "\"\r\n", kEnd);
    for (std::size_t i = 0; i < probes_.at.size(); ++i) {
        // The end tells more than bytes here and there: codes differ in their digits, which stand together.
        probes_.at[i] = text_.size() - 1 - std::min(i, text_.size() - 1);
        probes_.byte[i] = text_[probes_.at[i]];
    }
}

RegionFacts RegionScanner::whole(std::uint64_t number)
{
    read(number * region_, number);
    RegionFacts facts = look(number == 0 ? bytes_ : firstEnd(bytes_));
    facts.clear = facts.clear && facts.fields >= kLeastFields;
    return facts;
}

RegionFacts RegionScanner::from(std::uint64_t position)
{
    if (position == 0) {
        read(0, 0);
        return look(bytes_);
    }
    if (position <= kEnd) {
        return {};
    }
    read(position - kEnd, regionOf(position));
    return look(end_ - bytes_ > static_cast<std::ptrdiff_t>(kEnd) && fieldEndsAt(bytes_) ? bytes_ + kEnd
                                                                                         : nullptr);
}

/// Looks at the fields from `start`, where one begins, to the border; nowhere when `start` is null.
RegionFacts RegionScanner::look(const char* start) const
{
    static const LookAtStretch lookFast = fastestLook();
    const char* stop = firstEnd(border_);
    RegionFacts facts;
    facts.clear = start != nullptr && stop != nullptr;
    facts.closer = placeOf(border_);
    if (!facts.clear) {
        return facts;
    }
    for (const char* at = start; at < stop; at += kStretch) {
        const std::size_t count = std::min(kStretch, static_cast<std::size_t>(stop - at));
        const Look seen = count < kStretch ? lookAt(at, count, probes_) : lookFast(at, probes_);
        if (seen.odd != 0 || (seen.likely != 0 && wantedIn(at, at + count))) {
            facts.clear = false;
            facts.closer = placeOf(at + count);
            stop = at;
            break;
        }
        facts.fields += seen.ends;
    }
    // Back from field to field. The last end may have its CR LF behind `stop`.
    const char* end = facts.clear ? stop - kEnd : stop - 1;
    for (std::uint64_t behind = 0; behind < std::min(facts.fields, kLeastFields); ++behind, --end) {
        for (; !fieldEndsAt(end); --end) {
        }
        if (behind >= facts.late.size()) {
            facts.late[behind - facts.late.size()] = placeOf(end + kEnd);
        }
    }
    return facts;
}

std::uint64_t RegionScanner::placeOf(const char* at) const
{
    return low_ + static_cast<std::uint64_t>(at - bytes_);
}

/// Reads from `low` to a little behind the border of region `number`, or as far as there is something.
void RegionScanner::read(std::uint64_t low, std::uint64_t number)
{
    low_ = low;
    const auto inside = static_cast<std::size_t>((number + 1) * region_ - low);
    const std::size_t wanted = inside + reach_;
    std::size_t length = 0;
    try {
        while (length < wanted) {
            const std::size_t count = source_.readAt(low + length, {bytes_ + length, wanted - length});
            if (count == 0) {
                break;
            }
            length += count;
        }
    } catch (const RuntimeError&) {
        length = 0;  // whoever reads these fields one by one meets the fault in its place
    }
    end_ = bytes_ + length;
    border_ = bytes_ + std::min(inside, length);
}

/// Behind the first end of a field from `at` on; null when none is there.
const char* RegionScanner::firstEnd(const char* at) const
{
    for (; (at = findQuote(at, end_)) != end_; ++at) {
        if (end_ - at >= static_cast<std::ptrdiff_t>(kEnd) && fieldEndsAt(at)) {
            return at + kEnd;
        }
    }
    return nullptr;
}

/// Whether the text of a wanted field begins in [from, to). It has no quote inside and so cannot reach behind
/// a field that ends there.
bool RegionScanner::wantedIn(const char* from, const char* to) const
{
    const std::string_view bytes(from, static_cast<std::size_t>(to - from) + text_.size() - 1);
    for (std::size_t at = 0; (at = bytes.find(text_, at)) != std::string_view::npos; ++at) {
        if (wantedAt(from + at)) {
            return true;
        }
    }
    return false;
}

/// Whether the field around `text` is wanted. In the usual form the nearest quotes are its own.
bool RegionScanner::wantedAt(const char* text) const
{
    const char* begin = text;
    while (*begin != '"') {
        --begin;
    }
    const char* const end = findQuote(begin + 1, end_);
    return end == end_ || wanted_.fits({begin + 1, static_cast<std::size_t>(end - begin - 1)});
}

}  // namespace karvel

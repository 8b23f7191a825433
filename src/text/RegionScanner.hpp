#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "text/FieldReader.hpp"

namespace karvel {

/// What is looked for.
struct Wanted {
    /// Stands in every field that is; with the quotes around the field where it begins or ends with them, and
    /// with none inside. Empty: nothing can be told without reading.
    std::string text;
    /// Tells which of the fields that hold it are. Several threads may call it at once.
    std::function<bool(std::string_view)> fits;
};

/// How far a region has but fields of the usual form, in double quotes with CR LF behind them, and none that
/// is wanted.
struct RegionFacts {
    bool clear = false;        ///< so far as it goes
    std::uint64_t fields = 0;  ///< until then
    std::uint64_t closer = 0;  ///< if not clear: what begins before this place is for a closer look
    /// Where a field begins after which four to seven of `fields` follow, by that number less four; 0 when
    /// there is none.
    std::array<std::uint64_t, 4> late{};
};

/// Bytes of a text that are looked at before the rest of it.
struct TextProbes {
    std::array<std::size_t, 4> at{};
    std::array<char, 4> byte{};
};

/// Looks through a file region by region, without taking fields out.
///
/// Regions are so many bytes each, counted from the start of the file; a field belongs to the region in which
/// the closing quote before it stands. So everybody finds the same borders, wherever he begins.
class RegionScanner {
  public:
    /// `region` is the size in bytes; a field that begins in one must end within `reach` bytes behind it.
    /// `wanted.text` must not be empty. `source`, which must be readable at any place, and `wanted` must
    /// outlive the scanner.
    RegionScanner(const ByteSource& source, const Wanted& wanted, std::size_t region, std::size_t reach);

    /// The region in which a field belongs that begins `position` bytes from the start.
    [[nodiscard]] std::uint64_t regionOf(std::uint64_t position) const
    {
        return position < kEnd ? 0 : (position - kEnd) / region_;
    }

    /// The first place where a field of region `number` can begin.
    [[nodiscard]] std::uint64_t startOf(std::uint64_t number) const { return number * region_ + kEnd; }

    /// All of region `number`. One of very few fields is never clear. A device that fails makes it end
    /// where it fails.
    [[nodiscard]] RegionFacts whole(std::uint64_t number);

    /// What is left of a region from the field that begins at `position`, behind the line end of another.
    [[nodiscard]] RegionFacts from(std::uint64_t position);

  private:
    static constexpr std::size_t kEnd = 3;  ///< closing quote, CR, LF

    void read(std::uint64_t low, std::uint64_t number);
    [[nodiscard]] RegionFacts look(const char* start) const;
    [[nodiscard]] std::uint64_t placeOf(const char* at) const;
    [[nodiscard]] const char* firstEnd(const char* at) const;
    [[nodiscard]] bool wantedIn(const char* from, const char* to) const;
    [[nodiscard]] bool wantedAt(const char* text) const;

    const ByteSource& source_;
    const Wanted& wanted_;
    std::string_view text_;  ///< the beginning of the wanted one
    TextProbes probes_;
    std::size_t region_;
    std::size_t reach_;
    std::vector<char> buffer_;
    char* bytes_;         ///< what was read, in the buffer behind the end of a field that is not in the file
    const char* end_;     ///< of what was read
    const char* border_;  ///< of the region, in what was read
    std::uint64_t low_ = 0;  ///< where in the file what was read begins
};

}  // namespace karvel

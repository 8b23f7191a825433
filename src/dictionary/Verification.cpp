#include "dictionary/Verification.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/SignCode.hpp"
#include "text/Checksum.hpp"
#include "text/CodePage.hpp"

namespace karvel {

namespace {

/// Reads from another source and counts the lines up to any position, so that a fault is reported with its
/// line.
class LineCounter : public ByteSource {
  public:
    explicit LineCounter(ByteSource& source) : source_(source) {}

    /// `reader` reads from this source. The lines behind which it is are counted as it reads on, so that a
    /// file of line ends alone takes no memory.
    void follow(const FieldReader& reader) { reader_ = &reader; }

    std::size_t read(std::span<char> buffer) override
    {
        if (reader_ != nullptr) {
            (void)lineAt(reader_->position());
        }
        const std::size_t count = source_.read(buffer);
        for (std::size_t i = 0; i < count; ++i) {
            note(buffer[i], seen_ + i);
        }
        seen_ += count;
        return count;
    }
    [[nodiscard]] std::uint64_t size() const override { return source_.size(); }

    /// The line that holds the byte at `position`. Positions must not decrease from call to call.
    std::uint64_t lineAt(std::uint64_t position)
    {
        while (first_ < starts_.size() && starts_[first_] <= position) {
            ++first_;
            ++line_;
        }
        if (first_ > kMostPassed) {
            starts_.erase(starts_.begin(), starts_.begin() + static_cast<std::ptrdiff_t>(first_));
            first_ = 0;
        }
        return line_;
    }

  private:
    static constexpr std::size_t kMostPassed =
        4096;  ///< starts of lines that are kept though lineAt has passed them

    void note(char byte, std::uint64_t position)
    {
        if (byte == '\n' && afterCr_) {
            if (!starts_.empty()) {  // else the line was counted at the CR, where the last chunk ended
                starts_.back() = position + 1;  // CR LF is one line end
            }
        } else if (byte == '\n' || byte == '\r') {
            starts_.push_back(position + 1);
        }
        afterCr_ = byte == '\r';
    }

    ByteSource& source_;
    const FieldReader* reader_ = nullptr;
    std::vector<std::uint64_t> starts_;  ///< where lines begin that lineAt has not passed yet
    std::size_t first_ = 0;
    std::uint64_t seen_ = 0;
    std::uint64_t line_ = 1;
    bool afterCr_ = false;
};

bool spansLines(std::string_view field)
{
    return field.find_first_of("\r\n") != std::string_view::npos;
}

constexpr std::string_view kUnclosed = "virgolette aperte e mai chiuse";

std::string doubt(const std::array<std::string_view, 4>& fields)
{
    if (isSignSequence(fields[0])) {
        return {};
    }
    if (spansLines(fields[0])) {
        return std::string(kUnclosed);
    }
    return "il campo dei segni non è una sequenza di codici: \"" + decode(fields[0].substr(0, 40)) + "\"";
}

/// Remembers records by a checksum of what makes two of them the same, and where they begin.
class Seen {
  public:
    void note(const std::array<std::string_view, 4>& fields, std::uint64_t line)
    {
        constexpr std::size_t kMost = 10'000'000;  // sixteen bytes each
        if (places_.size() < kMost) {
            places_.emplace_back(checksum(fields[1], checksum("\"", checksum(fields[0]))), line);
        }
    }

    [[nodiscard]] std::vector<Double> doubles()
    {
        std::ranges::sort(places_);
        std::vector<Double> found;
        for (std::size_t at = 0, first = 0; at < places_.size(); ++at) {
            if (places_[at].first != places_[first].first) {
                first = at;
            } else if (at != first) {
                found.push_back({places_[at].second, places_[first].second});
            }
        }
        std::ranges::sort(found, {}, &Double::line);
        return found;
    }

  private:
    std::vector<std::pair<std::uint64_t, std::uint64_t>> places_;
};

}  // namespace

Verification verify(ByteSource& dictionary)
{
    Verification result;
    LineCounter lines(dictionary);
    FieldReader reader(lines);
    lines.follow(reader);
    Seen seen;
    std::uint64_t begin = 1;
    // A field whose quote is not closed ends at the next quote, and all later fields are shifted. Then the
    // fault is found in the next record, but the one to mend is the record before it, with a field over
    // several lines.
    std::optional<std::uint64_t> spanning;
    const auto fault = [&](std::string reason) {
        result.records -= spanning ? 1 : 0;
        return spanning ? Fault{*spanning, std::string(kUnclosed)} : Fault{begin, std::move(reason)};
    };
    try {
        for (;;) {
            std::array<std::string_view, 4> fields;
            const std::uint64_t before = lines.lineAt(reader.position());
            if (reader.atEndButBlankLines()) {
                result.doubles = seen.doubles();
                return result;
            }
            begin = before;
            reader.fields(fields);
            if (std::string reason = doubt(fields); !reason.empty()) {
                result.fault = fault(std::move(reason));
                return result;
            }
            ++result.records;
            seen.note(fields, begin);
            spanning = std::ranges::any_of(fields, spansLines) ? std::optional(begin) : std::nullopt;
        }
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::InputPastEnd) {
            throw;
        }
        if (dictionary.writtenSinceOpened()) {  // what is cut off is an entry that another program was adding
            result.doubles = seen.doubles();
            return result;
        }
        result.fault =
            fault(reader.insideQuote() ? std::string(kUnclosed)
                                       : "voce incompleta: il file finisce prima del quarto campo");
        return result;
    }
}

}  // namespace karvel

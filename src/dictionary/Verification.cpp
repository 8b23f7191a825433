#include "dictionary/Verification.hpp"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "base/CodePage.hpp"
#include "base/SignCode.hpp"

namespace karvel {

namespace {

/// Passes bytes on and counts the lines in them up to any position, so that a fault can be named by its line.
class LineCounter : public ByteSource {
  public:
    explicit LineCounter(ByteSource& source) : source_(source) {}

    std::size_t read(std::span<char> buffer) override
    {
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
        if (first_ > 4096) {
            starts_.erase(starts_.begin(), starts_.begin() + static_cast<std::ptrdiff_t>(first_));
            first_ = 0;
        }
        return line_;
    }

  private:
    void note(char byte, std::uint64_t position)
    {
        if (byte == '\n' && afterCr_) {
            starts_.back() = position + 1;  // CR LF is one line end
        } else if (byte == '\n' || byte == '\r') {
            starts_.push_back(position + 1);
        }
        afterCr_ = byte == '\r';
    }

    ByteSource& source_;
    std::vector<std::uint64_t> starts_;  ///< where lines begin that lineAt has not passed yet
    std::size_t first_ = 0;
    std::uint64_t seen_ = 0;
    std::uint64_t line_ = 1;
    bool afterCr_ = false;
};

std::string doubt(const std::array<std::string_view, 4>& fields)
{
    if (!isSignSequence(fields[0])) {
        std::string shown = decode(fields[0].substr(0, 40));
        return "il campo dei segni non è una sequenza di codici: \"" + shown + "\"";
    }
    return {};
}

}  // namespace

Verification verify(ByteSource& dictionary)
{
    Verification result;
    LineCounter lines(dictionary);
    FieldReader reader(lines);
    std::uint64_t begin = 1;
    try {
        for (;;) {
            std::array<std::string_view, 4> fields;
            const std::uint64_t before = lines.lineAt(reader.position());
            if (reader.atEndButBlankLines()) {
                return result;
            }
            begin = before;
            reader.fields(fields);
            if (std::string reason = doubt(fields); !reason.empty()) {
                result.fault = Fault{begin, std::move(reason)};
                return result;
            }
            ++result.records;
        }
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::InputPastEnd) {
            throw;
        }
        result.fault =
            Fault{begin, reader.insideQuote() ? "virgolette aperte e mai chiuse"
                                              : "voce incompleta: il file finisce prima del quarto campo"};
        return result;
    }
}

}  // namespace karvel

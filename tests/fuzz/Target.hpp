#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace karvel::fuzz {

/// The bytes that a fuzzer made up. Small numbers are taken from the end, so that the text in front of them
/// stays a text whatever else a target wants to have decided.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(size == 0 ? std::string_view() : std::string_view(reinterpret_cast<const char*>(data), size))
    {
    }

    /// 0 when nothing is left.
    unsigned byte()
    {
        if (rest_.empty()) {
            return 0;
        }
        const auto last = static_cast<unsigned char>(rest_.back());
        rest_.remove_suffix(1);
        return last;
    }

    /// Up to `count` bytes from the end.
    std::string_view tail(std::size_t count)
    {
        const std::size_t begin = rest_.size() > count ? rest_.size() - count : 0;
        const std::string_view taken = rest_.substr(begin);
        rest_.remove_suffix(taken.size());
        return taken;
    }

    /// The first line, without its line feed.
    std::string_view line()
    {
        const std::size_t end = rest_.find('\n');
        const std::string_view taken = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        return taken;
    }

    [[nodiscard]] std::string_view rest() const { return rest_; }

  private:
    std::string_view rest_;
};

/// What must hold; ends the program where it does not, so that the input is kept.
inline void require(bool holds, std::string_view what)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %.*s\n", static_cast<int>(what.size()), what.data());
        std::abort();
    }
}

}  // namespace karvel::fuzz

/// What a target defines: judges one input, and gives 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

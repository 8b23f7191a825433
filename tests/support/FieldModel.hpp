#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "text/FieldReader.hpp"

namespace karvel::testing {

/// Hands out at most `step` bytes at a time, as a slow device may.
class Dribble : public ByteSource {
  public:
    Dribble(std::string_view text, std::size_t step) : text_(text), step_(step) {}
    std::size_t read(std::span<char> buffer) override
    {
        return text_.read(buffer.first(std::min(buffer.size(), step_)));
    }
    [[nodiscard]] std::uint64_t size() const override { return text_.size(); }

  private:
    TextSource text_;
    std::size_t step_;
};

/// The slow and simple reader that the fast one is compared with: everything in memory.
class FieldModel {
  public:
    explicit FieldModel(std::string_view text) : text_(text) {}

    [[nodiscard]] bool atEnd() const { return at_ == text_.size(); }
    [[nodiscard]] std::size_t position() const { return at_; }

    [[nodiscard]] bool onlyBlankLinesLeft() const
    {
        return text_.substr(at_).find_first_not_of(" \r\n") == std::string_view::npos;
    }

    /// Nothing is error 62.
    std::optional<std::string> field()
    {
        while (!atEnd() && text_[at_] == ' ') {
            ++at_;
        }
        if (atEnd()) {
            return std::nullopt;
        }
        std::string field;
        const bool quoted = text_[at_] == '"';
        if (quoted) {
            const std::size_t close = text_.find('"', at_ + 1);
            if (close == std::string_view::npos) {
                insideQuote = true;
                return std::nullopt;
            }
            field = text_.substr(at_ + 1, close - at_ - 1);
            at_ = close + 1;
        }
        const std::size_t end = std::min(text_.find_first_of(",\r\n", at_), text_.size());
        if (!quoted) {
            field = text_.substr(at_, end - at_);
            field.resize(field.find_last_not_of(' ') + 1);
        }
        at_ = end;
        if (!atEnd()) {
            at_ += text_.substr(at_).starts_with("\r\n") ? 2 : 1;
        }
        return field;
    }

    bool insideQuote = false;

  private:
    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace karvel::testing

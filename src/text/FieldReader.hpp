#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string_view>

#include "text/ByteSource.hpp"

namespace karvel {

/// Reads delimited fields: separated by commas and line ends, in double quotes or bare.
///
/// Blanks before a field are skipped. A field that begins with a double quote runs to the next one,
/// whatever stands between, and then up to and including the next comma or line end. Any other field runs
/// to the next comma or line end, its trailing blanks dropped. A line end is CR LF, LF or CR. An empty line
/// is one empty field.
///
/// Fields are bytes of the file's code page. Memory is constant: one window of the source. The window grows
/// only when a single group of fields does not fit into it.
class FieldReader {
  public:
    static constexpr std::size_t kWindow = 256 * 1024;

    /// `source` must outlive the reader. A source known to be shorter gets a shorter window.
    explicit FieldReader(ByteSource& source, std::size_t window = kWindow);

    /// True when no byte is left.
    [[nodiscard]] bool atEnd();

    /// The next field; valid until the next call. Throws RuntimeError 62 when nothing is left or a quote is
    /// never closed, and what the source throws.
    [[nodiscard]] std::string_view field();

    /// The next `fields.size()` fields, valid together until the next call. Throws like `field`.
    void fields(std::span<std::string_view> fields);

    /// Reads `fields.size()` fields quickly when each of them is in double quotes, followed by CR LF, and
    /// wholly in the window. False when they are not: then nothing was read, views that were returned before
    /// are still valid, and `fields` reads any form.
    [[nodiscard]] bool quotedFieldsInWindow(std::span<std::string_view> fields);

    /// The bytes from the next field to the end of the window; valid until the next call that reads. Empty
    /// while empty lines that `atEndButBlankLines` skipped are still to be read.
    [[nodiscard]] std::string_view bytesInWindow() const
    {
        return emptyLines_ > 0 ? std::string_view() : std::string_view(buffer_.get() + at_, end_ - at_);
    }

    /// Continues `count` bytes behind the next field's start, where another field must begin. `count` is at
    /// most the size of `bytesInWindow`. Views that were returned before are still valid.
    void skipBytes(std::size_t count) { at_ += count; }

    /// Skips blanks and line ends when nothing else follows; true when the end was reached so.
    /// Otherwise nothing is lost: the empty lines skipped are still read as empty fields.
    [[nodiscard]] bool atEndButBlankLines();

    /// The next field as a number rounded to a whole one, halves to the even one; text that is no number is
    /// 0. Throws RuntimeError 6 when it does not fit into `Integer`, and like `field`.
    template <typename Integer>
    [[nodiscard]] Integer number()
    {
        return static_cast<Integer>(
            wholeNumber(std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()));
    }

    /// After an error 62: true when the end was met inside double quotes.
    [[nodiscard]] bool insideQuote() const { return insideQuote_; }

    /// Bytes consumed so far.
    [[nodiscard]] std::uint64_t position() const { return discarded_ + at_; }

  private:
    struct Slice {
        std::size_t begin;  ///< counted from keep_
        std::size_t length;
    };

    Slice next();
    Slice bareField();
    void endOfQuotedField();
    bool more();
    [[nodiscard]] std::int64_t wholeNumber(std::int64_t lowest, std::int64_t highest);
    [[nodiscard]] bool have() { return at_ < end_ || more(); }
    void lineEndAfterCr();

    ByteSource& source_;
    std::size_t capacity_;
    std::unique_ptr<char[]> buffer_;
    std::size_t keep_ = 0;  ///< bytes before this one are no longer needed
    std::size_t at_ = 0;
    std::size_t end_ = 0;
    std::uint64_t discarded_ = 0;
    bool insideQuote_ = false;
    std::uint64_t emptyLines_ = 0;  ///< skipped empty lines that are still to be handed out as fields
};

}  // namespace karvel

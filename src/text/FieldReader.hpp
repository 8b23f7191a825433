#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string_view>

#include "text/ByteSource.hpp"

namespace karvel {

/// Reads delimited fields: parted by commas and line ends, in double quotes or bare.
///
/// Blanks before a field are skipped. A field that begins with a double quote runs to the next one,
/// whatever stands between, and then up to and including the next comma or line end. Any other field runs
/// to the next comma or line end, its trailing blanks dropped. A line end is CR LF, LF or CR. An empty line
/// is one empty field.
///
/// Fields are bytes of the file's code page. Memory is constant: one window of the source, wider only
/// where a single group of fields is.
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

    /// The fast way for the usual record: four quoted fields, each on a line of its own, wholly in the
    /// window. False leaves everything as it is, views handed out before included; `fields` then reads any
    /// form.
    [[nodiscard]] bool recordInWindow(std::array<std::string_view, 4>& fields);

    /// Skips records of that form, as far as the window goes, in which `text` stands nowhere. The last record
    /// before one that has it, before the window's end or before any other form is never skipped. False when
    /// nothing was.
    bool skipRecordsWithout(std::string_view text);

    /// Whether what is read next begins at `position`.
    [[nodiscard]] bool atField() const { return emptyLines_ == 0; }

    /// Goes on at the field that begins `position` bytes from the start of a source that allows it. Views
    /// handed out before are lost. When the source throws, everything is as it was.
    void moveTo(std::uint64_t position);

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

    /// Where quoted fields with CR LF behind them end, sixty-four bytes at a time: `closing` are the closing
    /// quotes not yet handed out of the bytes from `block` on.
    struct FieldEnds {
        std::size_t at = kNowhere;  ///< where reading must go on for the rest to be right
        std::size_t block = 0;
        std::uint64_t closing = 0;
        std::uint64_t opening =
            0;  ///< the quotes that must stand in the next block, for the ends in this one
    };
    static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

    [[nodiscard]] bool readBlock(FieldEnds& ends) const;
    [[nodiscard]] bool resumeEnds(FieldEnds& ends) const;
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
    std::size_t portion_;   ///< bytes to ask the source for; what is far away is not read at once
    std::size_t keep_ = 0;  ///< bytes before this one are no longer needed
    std::size_t at_ = 0;
    std::size_t end_ = 0;
    std::uint64_t discarded_ = 0;
    FieldEnds ends_;
    bool insideQuote_ = false;
    std::uint64_t emptyLines_ = 0;  ///< skipped empty lines that are still to be handed out as fields
};

}  // namespace karvel

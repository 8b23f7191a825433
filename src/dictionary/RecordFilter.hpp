#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace karvel {

/// Finds whole records that a search can skip, without reading their fields.
///
/// A record can be skipped when it has the usual form (four fields in double quotes, each followed by CR LF)
/// and does not hold the text that every match holds. Any other form is left to the record reader.
class RecordFilter {
  public:
    /// Four bytes of the text. They are compared first; only where all of them fit the whole text is.
    struct Probes {
        std::array<std::size_t, 4> at{};
        std::array<char, 4> byte{};
    };

    /// Both are numbers of bytes from the start of the bytes that were scanned.
    struct Result {
        std::size_t skip = 0;  ///< whole records that can be skipped; 0 when there is none
        std::size_t read = 0;  ///< records that begin before this offset are to be read before the next scan
    };

    /// `text` must not be empty.
    explicit RecordFilter(std::string text);

    /// `bytes` begin where a record begins, and may end anywhere. The records behind the skipped ones begin
    /// with a whole one, so that the last record of a file is never skipped, and neither is the last one
    /// before a fault in the file.
    [[nodiscard]] Result scan(std::string_view bytes) const;

  private:
    std::string text_;
    Probes probes_;
};

}  // namespace karvel

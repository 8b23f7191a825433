#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/RecordFilter.hpp"
#include "text/FieldReader.hpp"

namespace karvel {

/// Reads the dictionary record by record, front to back, one record at a time.
class RecordReader {
  public:
    /// Owns `source`; `window` as FieldReader has it.
    explicit RecordReader(std::unique_ptr<ByteSource> source, std::size_t window = FieldReader::kWindow);

    /// Moves to the next record; false at the end of the file, where blanks and line ends behind the last
    /// record are no record, and neither is one that another program was adding when the file was opened.
    /// Throws RuntimeError 62 when the file ends inside a record or a quote is never closed; `last` then
    /// still is the last whole record.
    bool next();

    /// After `next` returned false: whether another program was adding a record. It can be read from the file
    /// when that is opened anew.
    [[nodiscard]] bool metUnfinished() const { return metUnfinished_; }

    /// From now on `next` may leave out records in which `text` does not stand. The last record of the file,
    /// or before a fault, is always read, so that `last` is right. An empty text leaves out nothing.
    void leaveOutWithout(const std::string& text);

    /// The record that `next` moved to; valid until the next call of `next`.
    [[nodiscard]] const RawRecord& record() const { return record_; }

    /// The last whole record read, also after the end; decoded. Nothing when there was none.
    [[nodiscard]] std::optional<DictionaryEntry> last() const;

    /// The offset at which the record read before the last call of `next` ends. At the end of the file: where
    /// the last record ends and only blanks and line ends follow.
    [[nodiscard]] std::uint64_t end() const { return end_; }

  private:
    bool readFields(std::span<std::string_view> fields);

    std::unique_ptr<ByteSource> source_;
    FieldReader fields_;
    std::optional<RecordFilter> filter_;
    std::uint64_t nextScan_ = 0;  ///< offset in the file before which `filter_` has nothing to skip
    std::uint64_t end_ = 0;
    RawRecord record_;
    bool metUnfinished_ = false;
    bool current_ = false;                 ///< record_ points into the window
    std::optional<DictionaryEntry> kept_;  ///< the last record, when it is no longer in the window
};

}  // namespace karvel

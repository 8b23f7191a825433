#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "dictionary/DictionaryEntry.hpp"
#include "text/FieldReader.hpp"
#include "text/FieldSkimmer.hpp"

namespace karvel {

/// Reads the dictionary record by record, front to back, one record at a time.
class RecordReader {
  public:
    /// Owns `source`; `window` as FieldReader has it.
    explicit RecordReader(std::unique_ptr<ByteSource> source, std::size_t window = FieldReader::kWindow,
                          const SkimShape& shape = {});

    /// Moves to the next record; false at the end of the file, where blanks and line ends behind the last
    /// record are no record. Throws RuntimeError 62 when the file ends inside a record or a quote is never
    /// closed; `last` then still is the last whole record.
    bool next();

    /// From now on `skip` may pass over records without a field that is wanted; over none when the wanted
    /// text is empty. A large file is looked through by several threads at once, until the reader goes.
    void lookFor(Wanted wanted);

    /// Passes quickly over such records, none where that takes a closer look; `next` goes on behind them.
    /// Whatever follows, `last` then is right again after one call of `next`. False when none was passed
    /// over. May throw ReadingStopped.
    bool skip();

    /// The record that `next` moved to; valid until the next call of `next`.
    [[nodiscard]] const RawRecord& record() const { return record_; }

    /// The last whole record read, also after the end; decoded. Nothing when there was none.
    [[nodiscard]] std::optional<DictionaryEntry> last() const;

    /// The offset at which the record read before the last call of `next` ends. At the end of the file: where
    /// the last record ends and only blanks and line ends follow.
    [[nodiscard]] std::uint64_t end() const { return end_; }

  private:
    void remember();

    std::unique_ptr<ByteSource> source_;
    FieldReader fields_;
    SkimShape shape_;
    std::string text_;                       ///< the wanted one
    std::unique_ptr<FieldSkimmer> skimmer_;  ///< none for a file that is small, or read once only
    std::uint64_t end_ = 0;
    RawRecord record_;
    bool current_ = false;  ///< record_ points into the window
    std::optional<DictionaryEntry> kept_;
};

}  // namespace karvel

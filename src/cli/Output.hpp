#pragma once

#include <string>
#include <string_view>

#include "dictionary/DictionaryEntry.hpp"

namespace karvel::cli {

/// Standard output, written in large pieces. `main` checks at the end whether all of it was written.
class Output {
  public:
    ~Output() { flush(); }
    Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Signs, translation, transliteration and note as stored, separated by tabs, on one line; a tab or a
    /// line end inside a field is shown as a blank.
    void entry(const RawRecord& record);
    void entry(const DictionaryEntry& entry);
    void line(std::string_view utf8);
    void flush();

  private:
    std::string pending_;
};

}  // namespace karvel::cli

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/UserInterface.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

class RecordReader;

/// Adds entries at the end of the dictionary.
class DictionaryInsertion {
  public:
    /// What the dialog does after "Conferma".
    enum class End {
        Refused,    ///< stays open: something is to be typed anew
        Failed,     ///< stays open: the dictionary could not be read or written
        Duplicate,  ///< closes; nothing was written
        Written     ///< closes
    };

    /// What is typed into the dialog, UTF-8.
    struct Texts {
        std::string translation;
        std::string transliteration;
        std::string note;
    };

    /// All must outlive the insertion.
    DictionaryInsertion(const FileSystem& files, UserInterface& ui, LastResult& last)
        : files_(files), ui_(ui), last_(last)
    {
    }

    /// True when `codes` holds signs to be entered; otherwise the user is told that nothing is written.
    [[nodiscard]] bool mayOpen(std::string_view codes);

    /// Checks the texts, looks for `codes` in the dictionary and appends the entry. Every refusal and failure
    /// is told to the user; the dictionary is then as it was. Throws ReadingStopped when the user stops the
    /// search for a duplicate: nothing was written.
    End confirm(std::string_view codes, Texts texts);

  private:
    bool refuses(std::string_view codes, const Texts& texts);
    std::optional<std::uint64_t> endUnlessKnown(std::string_view codes);
    bool lookThrough(RecordReader& reader, std::string_view codes);

    const FileSystem& files_;
    UserInterface& ui_;
    LastResult& last_;
};

}  // namespace karvel

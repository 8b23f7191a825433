#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dictionary/DictionaryEntry.hpp"
#include "files/FileSystem.hpp"
#include "reading/Following.hpp"
#include "reading/Lattice.hpp"
#include "reading/Lexicon.hpp"

namespace karvel {

/// Where the model of the reader is.
inline constexpr std::string_view kModelPath = "C:\\programmi\\Karvel\\lettura.txt";

/// What a range of signs may mean; texts UTF-8.
struct ReadingChoice {
    std::string transliteration;  ///< as the dictionary writes it
    std::string translation;      ///< empty when the dictionary lacks the word
    std::string note;
    float confidence = 0;  ///< from 0 to 1

    friend bool operator==(const ReadingChoice&, const ReadingChoice&) = default;
};

struct ReadWord {
    std::size_t begin = 0;   ///< in signs
    std::size_t length = 0;  ///< in signs
    bool known =
        true;  ///< false: no word; `choice.transliteration` are the values of the signs joined by "/"
    bool fixed = false;  ///< by hand
    ReadingChoice choice;
    std::vector<ReadingChoice>
        alternatives;  ///< other choices for the same range, at most five, the likeliest first
};

/// What the user decided about a range of signs.
struct FixedWord {
    std::size_t begin = 0;
    std::size_t length = 0;
    std::optional<ReadingChoice> choice;  ///< without it the range stands, and the reader looks for the word

    friend bool operator==(const FixedWord&, const FixedWord&) = default;
};

/// Reads passages of any length word by word: cuts them into words and finds the entry of each. A proposal,
/// not a proof.
class Reader {
  public:
    /// Reads the dictionary of the user and the model. Throws RuntimeError when the dictionary cannot be
    /// read; without a usable model `warning` tells so, and the reader works from the dictionary alone.
    explicit Reader(const FileSystem& files, std::string_view dictionary = kDictionaryPath,
                    std::string_view model = kModelPath);

    /// Italian, UTF-8; empty when all is well.
    [[nodiscard]] const std::string& warning() const { return warning_; }

    /// Reads sign codes joined without separators. Ranges of `fixed` that overlap an earlier one, or do not
    /// lie inside the passage, are left out. The words cover all signs in order.
    [[nodiscard]] std::vector<ReadWord> read(std::string_view codes,
                                             std::span<const FixedWord> fixed = {}) const;

  private:
    /// Entries of one word; by their numbers in entries_.
    using Entries = std::vector<std::uint32_t>;

    [[nodiscard]] std::vector<ReadingChoice> choicesOf(const Reading& reading, std::string_view codes) const;
    [[nodiscard]] std::vector<Reading> othersOn(const Reading& reading, std::string_view codes,
                                                const Lattice& lattice) const;
    [[nodiscard]] ReadWord wordOf(const Reading& reading, std::string_view codes,
                                  const Lattice& lattice) const;

    std::string warning_;
    std::unique_ptr<Lexicon> lexicon_;
    std::unique_ptr<Following> following_;
    std::vector<DictionaryEntry> entries_;
    std::vector<Entries> entriesOf_;  ///< by word
};

}  // namespace karvel

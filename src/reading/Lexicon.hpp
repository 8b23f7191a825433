#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "reading/EditScores.hpp"
#include "reading/FlatMap.hpp"
#include "reading/Model.hpp"

namespace karvel {

/// Which words a run of signs may write, and how likely a word is written so. A spelling that is not known is
/// taken for a known one with a sign more, fewer, other or in another place, or with two signs more, or one
/// more and one fewer or other.
class Lexicon {
  public:
    struct Word {
        std::string transliteration;
        std::uint32_t kind = 0;
        float count = 0;      ///< in the passages
        float spelled = 0;    ///< the counts of its spellings together
        float spellings = 0;  ///< their number
    };
    struct Candidate {
        std::uint32_t word = 0;
        float score = 0;  ///< logarithm of the probability of the signs, given the word
    };

    /// Spellings are added before `finish`, candidates are asked for after it.
    explicit Lexicon(const ReadingModel& model);

    /// Counts `signs` as a spelling of `transliteration` that was seen `count` times, and the word itself as
    /// seen `common` times more. Returns the word's number.
    std::uint32_t add(SignsView signs, std::string_view transliteration, float count, float common);

    void finish();

    /// Adds to `found` the likeliest words that `signs` (one or more) may write, each once, in no order.
    void candidates(SignsView signs, std::vector<Candidate>& found) const;

    /// By the words' numbers; word 0 is the edge of a passage.
    [[nodiscard]] const std::vector<Word>& words() const { return words_; }

    /// The number of the word; 0 when there is none.
    [[nodiscard]] std::uint32_t numberOf(const std::string& transliteration) const;

    /// Signs of the longest spelling.
    [[nodiscard]] std::size_t longest() const { return longest_; }

  private:
    struct Use {
        std::uint32_t word = 0;
        float count = 0;
        float exact = 0;  ///< logarithm of its probability as it stands
        float near = 0;   ///< and as the base of a changed spelling
    };
    struct Spelling {
        SignNumbers signs;
        std::vector<Use> uses;
    };
    struct Gap {
        std::uint32_t spelling = 0;
        std::uint32_t at = 0;    ///< the sign that is left out
        std::uint32_t next = 0;  ///< the next gap with the same hash; 0 none
    };

    /// What a sequence of signs is: a spelling, and spellings from which one sign is left out.
    struct Signs {
        std::uint32_t spelling = 0;  ///< its number plus one; 0 none
        std::uint32_t gap = 0;       ///< the number of the first gap; 0 none
    };

    Spelling& spellingOf(SignsView signs);
    [[nodiscard]] float more(SignsView signs, std::size_t at) const;
    [[nodiscard]] float fewer(const Spelling& known, std::size_t at) const;
    template <typename Take>
    void eachGap(std::uint32_t first, Take take) const;
    void changedSpellings(SignsView signs, std::vector<Candidate>& found) const;
    void indexGaps();

    std::vector<Word> words_;
    std::unordered_map<std::string, std::uint32_t> numbers_;
    std::vector<Spelling> spellings_;
    FlatMap<Signs> bySigns_;    ///< by their hash
    std::vector<Gap> gaps_{1};  ///< spellings without one sign; number 0 is none
    EditScores edits_;
    std::vector<float> weights_;  ///< logarithms of the words' counts
    std::size_t longest_ = 1;
};

}  // namespace karvel

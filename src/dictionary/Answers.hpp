#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/Lookup.hpp"
#include "dictionary/RecordReader.hpp"
#include "dictionary/SearchModes.hpp"

namespace karvel {

/// How well an entry answers a question; the smaller, the better. `tier` is comparable between kinds of
/// question: 0 the whole field, 1 a whole word of it, 2 the beginning of a word, 3 a part of one.
struct Rank {
    std::uint8_t tier = 0;
    std::uint8_t place = 0;  ///< within the tier: a first sense before a later one

    friend auto operator<=>(const Rank&, const Rank&) = default;
};

/// An entry that answers a question. Copies share the entry.
struct Answer {
    std::shared_ptr<const DictionaryEntry> entry;
    Rank rank = {};
    std::size_t order = 0;       ///< its number in the file, from 0
    std::size_t markedFrom = 0;  ///< the signs that matched: a range of the entry's signs, in signs
    std::size_t marked = 0;
};

/// The answers to a question, folded by word: entries with the same transliteration and translation are
/// spellings of one word.
class Answers {
  public:
    enum class Order { BestFirst, FileOrder };

    struct Word {
        std::vector<std::size_t> spellings;  ///< indices into `all`, in the order of the list; never empty
    };

    void add(Answer answer);

    /// All of `found`, sorted best first.
    [[nodiscard]] static Answers of(const std::vector<Answer>& found);

    /// All of `found` in its order, each as a word of its own: a text may have a word twice.
    [[nodiscard]] static Answers unfolded(const std::vector<Answer>& found);

    /// Puts words, and the spellings of each, in `order`; within equal ranks that of the file. Words added
    /// later stand at the end until the next call.
    void sort(Order order);

    [[nodiscard]] bool empty() const { return all_.empty(); }
    [[nodiscard]] const std::vector<Answer>& all() const { return all_; }
    [[nodiscard]] std::size_t words() const { return words_.size(); }

    /// The word on line `line` of the list, from 0.
    [[nodiscard]] const Word& word(std::size_t line) const { return words_[lines_[line]]; }

    /// The answer that stands for a word in the list.
    [[nodiscard]] const Answer& best(const Word& word) const { return all_[word.spellings.front()]; }

    /// "144 parole, 271 voci", in the singular where there is one.
    [[nodiscard]] std::string counts() const;

  private:
    struct Key {
        std::string_view transliteration;
        std::string_view translation;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct Hash {
        std::size_t operator()(const Key& key) const noexcept
        {
            const std::hash<std::string_view> hash;
            return hash(key.transliteration) * 31 + hash(key.translation);
        }
    };

    std::vector<Answer> all_;
    std::vector<Word> words_;
    std::vector<std::size_t> lines_;                     ///< indices into words_, in the order of the list
    std::unordered_map<Key, std::size_t, Hash> byWord_;  ///< views into the entries of all_
};

/// Whether `phrase`, sign codes, stands in `signs`; its rank and range are then put into `answer`: equal
/// signs rank before those that begin with it, and these before the rest.
[[nodiscard]] bool markMatch(std::string_view signs, std::string_view phrase, Answer& answer);

/// Finds the records whose signs satisfy a phrase in a search mode, any but Split.
class PhraseMatches {
  public:
    /// `phrase` holds sign codes. `reader`, still at its start, must outlive the object.
    PhraseMatches(RecordReader& reader, Mode mode, std::string_view phrase);

    /// Reads a record, adds it to `found` when it matches, ranked as `markMatch` does. False at the end of
    /// the file. Throws like RecordReader::next.
    bool step(std::vector<Answer>& found);

  private:
    RecordReader& reader_;
    Mode mode_;
    std::string phrase_;
    MatchRule rule_;
    std::size_t matches_ = 0;
};

}  // namespace karvel

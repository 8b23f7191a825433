#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
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
    std::size_t word = 0;  ///< equal in the spellings of one word
};

/// Numbers words in the order in which they are met, from 0. Entries with the same transliteration and
/// translation are spellings of one word.
class WordNumbers {
  public:
    /// The number of the word of `entry`, which must outlive the object.
    [[nodiscard]] std::size_t of(const DictionaryEntry& entry)
    {
        return numbers_.try_emplace(Key{entry.transliteration, entry.translation}, numbers_.size())
            .first->second;
    }

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

    std::unordered_map<Key, std::size_t, Hash> numbers_;
};

/// The answers to a question, folded by word.
class Answers {
  public:
    enum class Order { BestFirst, FileOrder };

    struct Word {
        std::vector<std::size_t> spellings;  ///< indices into `all`, in the order of the list; never empty
    };

    Answers() = default;

    /// All of `found`, which is in the order of the file, sorted best first. `marks` are the signs that the
    /// question asked for.
    explicit Answers(std::vector<Answer> found, SignMarks marks = {});

    /// Puts words, and the spellings of each, in `order`; within equal ranks that of the file.
    void sort(Order order);

    [[nodiscard]] bool empty() const { return all_.empty(); }
    [[nodiscard]] const std::vector<Answer>& all() const { return all_; }
    [[nodiscard]] std::size_t words() const { return words_.size(); }

    /// The word on line `line` of the list, from 0.
    [[nodiscard]] const Word& word(std::size_t line) const { return words_[line]; }

    /// The answer that stands for a word in the list.
    [[nodiscard]] const Answer& best(const Word& word) const { return all_[word.spellings.front()]; }

    /// The signs to be marked in the answers.
    [[nodiscard]] const SignMarks& marks() const { return marks_; }

    /// "144 parole, 271 voci", in the singular where there is one.
    [[nodiscard]] std::string counts() const;

  private:
    std::vector<Answer> all_;
    std::vector<Word> words_;  ///< by line
    SignMarks marks_;
};

/// How `phrase`, sign codes, stands in `signs`, if it does: equal signs rank before those that begin with it,
/// and these before the rest.
[[nodiscard]] std::optional<Rank> signRank(std::string_view signs, std::string_view phrase);

/// Finds the records whose signs satisfy a phrase in a search mode, any but Split.
class PhraseMatches {
  public:
    /// `phrase` holds sign codes. `reader`, still at its start, must outlive the object.
    PhraseMatches(RecordReader& reader, Mode mode, std::string_view phrase);

    /// Reads a record, adds it to `found` when it matches, ranked as `signRank` does. False at the end of
    /// the file. Throws like RecordReader::next.
    bool step(std::vector<Answer>& found);

    /// The signs that make entries match.
    [[nodiscard]] SignMarks marks() const { return rule_.marks(); }

  private:
    RecordReader& reader_;
    std::string phrase_;
    MatchRule rule_;
    WordNumbers words_;
};

}  // namespace karvel

#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dictionary/Answers.hpp"
#include "dictionary/DictionaryEntry.hpp"

namespace karvel {

/// What a question to the dictionary is written in.
enum class QuestionKind { Italian, Transliteration, Signs };

inline constexpr std::array kQuestionKinds = {QuestionKind::Italian, QuestionKind::Transliteration,
                                              QuestionKind::Signs};

/// "italiano", "traslitterazione" or "segni".
[[nodiscard]] std::string_view nameOf(QuestionKind kind);

/// The texts of an entry as questions compare them, made once for each entry.
struct FoldedEntry {
    explicit FoldedEntry(const DictionaryEntry& entry);

    std::string italian;               ///< ",SENSE,SENSE(REMARK,": capitals without accents
    std::string transliteration;       ///< the readings as `transliterationKey` has them, each between commas
    std::string smallTransliteration;  ///< the same in small letters
};

/// A question as a person types it, in one of three kinds.
///
/// Italian: case and accents do not matter; several words all have to occur. Transliteration: ASCII or
/// printed letters; "*" stands for any letters, "?" for one; exact letters rank before those that differ by
/// capitals. Signs: Gardiner numbers or hieroglyphs, in this order and together, or, separated by "+", in any
/// order.
class WordQuestion {
  public:
    /// Nothing when `text`, UTF-8, can be no question of this kind, or is blank.
    [[nodiscard]] static std::optional<WordQuestion> make(std::string_view text, QuestionKind kind);

    [[nodiscard]] QuestionKind kind() const { return kind_; }

    /// How well `entry`, of which `folded` was made, answers; nothing when it does not. Signs are looked for
    /// in `entry` alone, the other kinds in `folded` alone.
    [[nodiscard]] std::optional<Rank> rankOf(const DictionaryEntry& entry, const FoldedEntry& folded) const;

    /// The signs that are asked for; none in a question of another kind.
    [[nodiscard]] SignMarks marks() const { return {.beginning = {}, .end = {}, .anywhere = parts_}; }

  private:
    explicit WordQuestion(QuestionKind kind) : kind_(kind) {}

    [[nodiscard]] std::optional<Rank> italianRank(std::string_view senses) const;
    [[nodiscard]] std::optional<Rank> transliterationRank(const FoldedEntry& folded) const;
    [[nodiscard]] std::optional<Rank> signsRank(std::string_view signs) const;

    QuestionKind kind_;
    std::string text_;                ///< the question folded; for signs the codes of its first part
    std::vector<std::string> words_;  ///< Italian: those of `text_`
    std::string small_;               ///< the transliteration in small letters
    bool wildcards_ = false;
    std::vector<std::string> parts_;  ///< signs: phrases of codes that all have to occur
};

}  // namespace karvel

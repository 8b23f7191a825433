#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reading/Reader.hpp"

namespace karvel {

/// What was not understood in a text, and where it stands.
struct UnknownText {
    std::string text;
    std::size_t line = 1;
    std::size_t column = 1;  ///< in characters

    friend bool operator==(const UnknownText&, const UnknownText&) = default;
};

struct PassageSigns {
    std::string codes;               ///< joined without separators
    std::vector<std::size_t> lines;  ///< the number of signs at the end of each line but the last
    std::vector<UnknownText> unknown;
};

/// How a group of letters is read that may be a sign code or a Gardiner number in small letters.
enum class SignForm : std::uint8_t { Code, Gardiner };

/// Reads Unicode hieroglyphs, sign codes, and Gardiner numbers with the separators of the Manuel de Codage,
/// in any mixture. Line breaks are kept.
[[nodiscard]] PassageSigns readSigns(std::string_view utf8, SignForm preferred = SignForm::Code);

/// The text of a file: UTF-8 with or without its mark; anything else is taken for the code page.
[[nodiscard]] std::string passageText(std::string_view bytes);

/// What a hand made: the text as it was given, and what was fixed in it.
struct HandWork {
    std::string text;  ///< UTF-8
    std::vector<FixedWord> fixed;

    friend bool operator==(const HandWork&, const HandWork&) = default;
};

/// The content of a `.karvel-lettura` file. `docs/reading.md` describes it.
[[nodiscard]] std::string writeHandWork(const HandWork& work);

/// Reads it back; nothing when the file is damaged or of another kind.
[[nodiscard]] std::optional<HandWork> readHandWork(std::string_view bytes);

/// A text read word by word, and corrected by hand. After each correction the words around it are read
/// again. Every change can be undone. Words are named by their place in `words()`; a place that does not
/// exist changes nothing.
class Passage {
  public:
    /// Reads with `reader` from now on; it must outlive its use here.
    void use(const Reader& reader);

    /// Reads another text, in which nothing is fixed. Nothing changes when the text is the same.
    void setText(const std::string& text);
    /// Goes on with saved work.
    void open(HandWork work);

    [[nodiscard]] const HandWork& work() const { return work_; }
    [[nodiscard]] const PassageSigns& signs() const { return signs_; }
    [[nodiscard]] const std::vector<ReadWord>& words() const { return words_; }
    [[nodiscard]] std::string codesOf(const ReadWord& word) const;
    /// True when a line of the text ends inside or behind the word.
    [[nodiscard]] bool endsLine(const ReadWord& word) const;

    void choose(std::size_t word, ReadingChoice choice);
    /// Takes the choice after the present one; after the last comes the first.
    void chooseNext(std::size_t word);
    void joinWithNext(std::size_t word);
    /// Cuts the word after its first `signs` signs.
    void divide(std::size_t word, std::size_t signs);
    /// Leaves the word to the reader again.
    void release(std::size_t word);

    /// Takes back the last change. False when there is none.
    bool undo();
    [[nodiscard]] bool canUndo() const { return !earlier_.empty(); }

    /// Running text as books print it, with suffixes joined to their words; a line for each line of the text.
    /// What is no word is in brackets.
    [[nodiscard]] std::string transliteration() const;
    /// The first meaning of each word, separated by bars; "[?]" where there is none.
    [[nodiscard]] std::string translation() const;

    /// An HTML page that needs no other file. `picture` gives the picture of a word's codes in HTML.
    [[nodiscard]] std::string html(const std::function<std::string(const std::string&)>& picture) const;
    /// A word a line: signs, transliteration and translation separated by tabs; then the running texts.
    [[nodiscard]] std::string plainText() const;

  private:
    /// Puts `added` in the place of all that is fixed from sign `begin` to sign `end`.
    void fix(std::size_t begin, std::size_t end, std::vector<FixedWord> added);
    void change(HandWork work);
    void read();

    const Reader* reader_ = nullptr;
    HandWork work_;
    PassageSigns signs_;
    std::vector<ReadWord> words_;
    std::vector<HandWork> earlier_;
};

/// The transliteration of a word as books print it; in brackets when it is no word.
[[nodiscard]] std::string printedReading(const ReadWord& word);

/// True for a word that the reader is not sure of, and that no hand fixed.
[[nodiscard]] bool isDoubtful(const ReadWord& word);

/// What stands above every result: the reading is a proposal.
inline constexpr std::string_view kProposal =
    "Karvel propone, chi legge decide: nessuna lettura automatica è una prova.";

}  // namespace karvel

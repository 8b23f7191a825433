#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/UserInterface.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/RecordReader.hpp"
#include "dictionary/TranslationLookup.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// A word with which a phrase begins.
struct Word {
    DictionaryEntry entry;
    std::size_t length = 0;  ///< characters of the phrase that it takes
};

/// The longest word at the left end of `phrase`: signs are taken away at its right end, one at a time, until
/// what is left equals a record's signs; of several such records the first in the file. Nothing when no word
/// begins there.
///
/// Reads `reader`, still at the start of the file, to the end at most once; no further than the first record
/// that is the whole phrase. Throws like RecordReader::next: a word found before the fault does not count,
/// because longer ones may have been lost.
[[nodiscard]] std::optional<Word> longestWord(RecordReader& reader, std::string_view phrase);

/// The translations that word splitting has collected in this run, in the order in which they were found.
class TranslatedWords {
  public:
    [[nodiscard]] const std::vector<std::string>& List1() const { return lines_; }
    /// The signs of the word in line `line`, as codes.
    [[nodiscard]] const std::string& signsOf(std::size_t line) const { return signs_[line]; }
    void add(std::string translation, std::string signs)
    {
        lines_.push_back(std::move(translation));
        signs_.push_back(std::move(signs));
    }
    void clear()
    {
        lines_.clear();
        signs_.clear();
    }

    /// The menu "Parole tradotte": true when there is something to show, else the user is told so.
    [[nodiscard]] bool mayBeShown(UserInterface& ui) const;

  private:
    std::vector<std::string> lines_;
    std::vector<std::string> signs_;
};

/// What splitting does to the display besides showing found words.
class SplittingView : public ResultView {
  public:
    /// The phrase loses its first `characters`; they have been translated.
    virtual void consume(std::size_t characters) = 0;

    /// Removes every picture and border from the cells.
    virtual void clearCells() = 0;
};

/// The search mode "Dividi in parole": cuts a phrase into the longest words of the dictionary, from its left
/// end on, and shows each in a box of its own.
class WordSplitter {
  public:
    /// All must outlive the splitter.
    WordSplitter(const FileSystem& files, UserInterface& ui, SplittingView& view, LastResult& last,
                 TranslatedWords& words)
        : files_(files), ui_(ui), view_(view), last_(last), words_(words)
    {
    }

    /// Splits `phrase`, not empty, until it is used up, no word begins where it stands, or the user cancels.
    /// What was found and consumed until then stays, also when RuntimeError is thrown.
    void run(std::string_view phrase);

  private:
    std::optional<Word> find(std::string_view phrase);

    const FileSystem& files_;
    UserInterface& ui_;
    SplittingView& view_;
    LastResult& last_;
    TranslatedWords& words_;
};

}  // namespace karvel

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/UserInterface.hpp"
#include "compose/DisplayLine.hpp"
#include "compose/History.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "dictionary/RecordReader.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// Tells whether a translation, bytes of the code page, answers an Italian word.
class ItalianWord {
  public:
    enum class Match {
        Whole,    ///< equal, letter case included
        Contains  ///< anywhere in it, whatever the letter case; an empty word is everywhere
    };

    ItalianWord(std::string_view word, Match match);

    [[nodiscard]] bool matches(std::string_view translation) const;

  private:
    [[nodiscard]] bool contains(std::string_view translation) const;

    Match match_;
    std::string bytes_;  ///< upper case for Contains
    bool writable_;      ///< false: it holds characters that no dictionary can
};

/// The translations of all records of `reader`, UTF-8, as the list of `italiano` holds them: sorted without
/// regard to letter case, accented letters next to their plain ones; of those that differ by letter case
/// alone only the first; an empty one at the end. Throws like RecordReader::next.
[[nodiscard]] std::vector<std::string> wordList(RecordReader& reader);

/// The search from an Italian word to its signs, behind the window `italiano`.
class ItalianSearch {
  public:
    /// All must outlive the search.
    ItalianSearch(const FileSystem& files, UserInterface& ui, DisplayLine& display, LastResult& last,
                  History& history)
        : files_(files), ui_(ui), display_(display), last_(last), history_(history)
    {
    }

    /// The sign codes of the match shown last; empty when there was none yet. `LastResult` holds the record
    /// read last, which may be a later one.
    [[nodiscard]] const std::string& shownSigns() const { return shownSigns_; }

    /// The word list of the dictionary as it is now. When the user stops the reading, that of what was read.
    /// Throws RuntimeError when the dictionary cannot be read.
    [[nodiscard]] std::vector<std::string> buildWordList();

    /// CERCA: shows every entry whose translation is `word`, until the user cancels or the file ends. Throws
    /// RuntimeError 55 while an earlier search is still open, and when the dictionary cannot be read.
    void search(std::string_view word);

    /// "Ricerca specifica": asks for a word and shows every entry whose translation contains it. Throws like
    /// `search`.
    ///
    /// Kept: cancelled, it leaves the dictionary open, so that the next search is refused until the user has
    /// closed this one; "Annulla" here means "stop at this entry".
    void searchSpecific();

    /// A word was picked in the list: CERCA, and afterwards nothing is open. Throws like `search`.
    void choose(std::string_view word);

    /// Closes the dictionary if a cancelled search left it open.
    void close() { reader_.reset(); }

  private:
    enum class End { Cancelled, EndOfFile };

    void open();
    void remember(const RecordReader& reader, ItalianWord::Match match);
    bool next(RecordReader& reader, const ItalianWord& word, ItalianWord::Match match);
    void show(DictionaryEntry entry, ItalianWord::Match match);
    void closeIf(const std::shared_ptr<RecordReader>& reader);
    End pass(std::string_view word, ItalianWord::Match match);

    const FileSystem& files_;
    UserInterface& ui_;
    DisplayLine& display_;
    LastResult& last_;
    History& history_;
    std::string shownSigns_;
    std::shared_ptr<RecordReader> reader_;  ///< while a search is open
};

}  // namespace karvel

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/Session.hpp"
#include "dictionary/AnswerSearch.hpp"

namespace karvel {

/// The name of a search mode, as headings and the history show it.
[[nodiscard]] std::string_view nameOf(Mode mode);

/// What the search button would show, as one list.
class EntryList : public AnswerSearch {
  public:
    /// Asks the dictionary for `phrase`, sign codes, not empty. `files` must outlive the object.
    EntryList(const FileSystem& files, Mode mode, std::string_view phrase);

    /// Best first; in the mode Split in the order of the phrase, in which a word may stand twice.
    [[nodiscard]] Answers answers() const override
    {
        return Answers(found_, matches_ ? matches_->marks() : SignMarks());
    }
    [[nodiscard]] std::size_t found() const override { return found_.size(); }

    /// Split: the signs with which no word begins.
    [[nodiscard]] std::string rest() const override
    {
        return ended() && mode_ == Mode::Split ? std::string(left_) : std::string();
    }

    /// Of the file; Split, which reads it once for each word: of the phrase.
    [[nodiscard]] int percent() const override;

    /// "F35 · Cerca simile · 144 parole, 271 voci" for the answers shown.
    [[nodiscard]] std::string heading(const Answers& shown) const;

  private:
    bool step() override;
    bool splitOff();

    const FileSystem& files_;
    Mode mode_;
    std::string phrase_;
    std::string_view left_;  ///< Split: the rest that is not split yet
    std::vector<Answer> found_;
    ReadingProgress progress_;
    std::unique_ptr<RecordReader> reader_;
    std::optional<PhraseMatches> matches_;
};

/// A fault of the dictionary in one line.
[[nodiscard]] std::string faultLine(const RuntimeError& failure);

/// The line shown after the user stopped a reading at `percent`, when `found` answers had been found.
[[nodiscard]] std::string stoppedLine(int percent, std::size_t found);

/// Shows `entry`, an answer to the phrase `searched`, as a match of a search is shown, without its box:
/// cells, last translation and note, picture.
void showEntry(Session& session, const DictionaryEntry& entry, const std::string& searched);

/// Appends the signs of `codes` to the phrase; letter case does not matter, and what is no code is left out.
/// False when they were refused. Throws like Palette::pressCodes.
bool useSigns(Session& session, std::string_view codes);

/// All spellings as a table for spreadsheets, UTF-8 with a byte order mark, fields separated by ";" as is
/// usual in Italy.
[[nodiscard]] std::string asCsv(const Answers& answers);

/// The signs of an entry, sign codes, as HTML.
using SignsInHtml = std::function<std::string(const std::string& codes)>;

/// All spellings as a page. `signs` writes the signs of each; without it they are written in Unicode.
/// `atEnd` gives what stands once at the end of the page; it is asked after all of them.
[[nodiscard]] std::string asHtml(const Answers& answers, std::string_view heading,
                                 const SignsInHtml& signs = {},
                                 const std::function<std::string()>& atEnd = {});

/// One entry as the row of a table in HTML, and as plain text separated by tabs.
[[nodiscard]] std::string htmlRow(const DictionaryEntry& entry, const SignsInHtml& signs = {});
[[nodiscard]] std::string plainRow(const DictionaryEntry& entry);

}  // namespace karvel

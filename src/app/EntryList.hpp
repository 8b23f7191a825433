#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/Session.hpp"
#include "dictionary/Answers.hpp"

namespace karvel {

/// The name of a search mode, as headings and the history show it.
[[nodiscard]] std::string_view nameOf(Mode mode);

/// What the search button would show, as one list.
struct EntryList {
    std::string phrase;  ///< the sign codes asked for
    Mode mode = Mode::Contains;
    Answers answers;                      ///< best first; in the mode Split in the order of the phrase
    std::string rest;                     ///< Split: the signs with which no word begins
    std::optional<RuntimeError> failure;  ///< the fault of the file at which reading ended

    /// "F35 · Cerca simile · 144 parole, 271 voci".
    [[nodiscard]] std::string heading() const;
};

/// Asks the dictionary for `phrase`, not empty. A fault of the file and a stop by the user end the reading;
/// the answers found before stay. Changes nothing in the session.
[[nodiscard]] EntryList listEntries(const FileSystem& files, UserInterface& ui, Mode mode,
                                    std::string_view phrase);

/// A fault of the dictionary in one line.
[[nodiscard]] std::string faultLine(const RuntimeError& failure);

/// Shows `entry` as a match of a search is shown, without its box: cells, last translation and note, picture.
void showEntry(Session& session, const DictionaryEntry& entry);

/// Appends the signs of `codes` to the phrase; letter case does not matter, and what is no code is left out.
/// False when they were refused. Throws like Palette::pressCodes.
bool useSigns(Session& session, std::string_view codes);

/// All spellings as a table for spreadsheets, UTF-8 with its mark, fields parted by ";" as they are here.
[[nodiscard]] std::string asCsv(const Answers& answers);

/// All spellings as a page with the signs in Unicode.
[[nodiscard]] std::string asHtml(const Answers& answers, std::string_view heading);

/// One entry as the row of a table in HTML, and as plain text parted by tabs.
[[nodiscard]] std::string htmlRow(const DictionaryEntry& entry);
[[nodiscard]] std::string plainRow(const DictionaryEntry& entry);

}  // namespace karvel

#include "words/ItalianSearch.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "dictionary/TranslationLookup.hpp"
#include "text/CodePage.hpp"
#include "text/Compose.hpp"

namespace karvel {

namespace {

/// The cells that a search clears. Kept: the last two are not among them, so a longer line that stood there
/// before keeps its tail.
constexpr std::size_t kLastCleared = 9;

/// The translations by what they are sorted by: folded, then in upper case, so that "papa" and "PAPA" stand
/// together before "papà". Of those that differ in case only, the first of the file is kept.
using ListedWords = std::unordered_map<std::string, std::string>;

void readInto(ListedWords& words, RecordReader& reader)
{
    std::string key;
    while (reader.next()) {
        const std::string_view translation = reader.record().translation;
        key = foldedBytes(translation);
        key += '\0';
        key += upperCaseBytes(translation);
        words.try_emplace(key, translation);
    }
}

/// The list from the hidden sorted one. It goes one place beyond the last word: the empty line there lets the
/// user go back to "no word".
std::vector<std::string> listOf(const ListedWords& words)
{
    std::vector<const ListedWords::value_type*> sorted;
    sorted.reserve(words.size());
    for (const auto& word : words) {
        sorted.push_back(&word);
    }
    std::ranges::sort(sorted, {}, [](const auto* word) -> const std::string& { return word->first; });
    std::vector<std::string> list;
    list.reserve(sorted.size() + 1);
    for (const auto* const word : sorted) {
        list.push_back(decode(word->second));
    }
    if (list.empty() || !list.back().empty()) {
        list.emplace_back();
    }
    return list;
}

}  // namespace

ItalianWord::ItalianWord(std::string_view word, Match match)
    : match_(match), bytes_(encode(composed(word))), writable_(unencodable(composed(word)).empty())
{
    if (match_ == Match::Contains) {
        bytes_ = upperCaseBytes(bytes_);
    }
}

bool ItalianWord::matches(std::string_view translation) const
{
    return writable_ && (match_ == Match::Whole ? translation == bytes_ : contains(translation));
}

bool ItalianWord::contains(std::string_view translation) const
{
    const auto same = [](char wanted, char byte) {
        return static_cast<unsigned char>(wanted) == upperCaseByte(static_cast<unsigned char>(byte));
    };
    for (std::size_t at = 0; at + bytes_.size() <= translation.size(); ++at) {
        if (std::equal(bytes_.begin(), bytes_.end(), translation.begin() + static_cast<std::ptrdiff_t>(at),
                       same)) {
            return true;
        }
    }
    return false;
}

std::vector<std::string> wordList(RecordReader& reader)
{
    ListedWords words;
    readInto(words, reader);
    return listOf(words);
}

std::vector<std::string> ItalianSearch::buildWordList()
{
    const BusyPointer hourglass(ui_);
    ListedWords words;
    try {
        RecordReader reader(openDictionary(files_, ui_));
        readInto(words, reader);
    } catch (const ReadingStopped&) {
        // A part of the list is better than none: the user can still type the word.
    }
    return listOf(words);
}

void ItalianSearch::open()
{
    if (reader_) {
        throw RuntimeError(ErrorNumber::FileAlreadyOpen, "Premere ANNULLA per chiudere la ricerca in corso.");
    }
    reader_ = std::make_shared<RecordReader>(openDictionary(files_, ui_));
}

/// Keeps the record read last for the other windows.
void ItalianSearch::remember(const RecordReader& reader, ItalianWord::Match match)
{
    const std::optional<DictionaryEntry> entry = reader.last();
    if (!entry) {
        return;
    }
    last_.phrase = entry->signs;
    if (match == ItalianWord::Match::Whole) {
        last_.translation = entry->translation;
        last_.note = entry->note;
    } else {
        last_.translation = upperCase(entry->translation);
        last_.note = upperCase(entry->note);
        last_.foundCodes = upperCase(entry->signs);
    }
}

/// Moves to the next match; false at the end of the file.
bool ItalianSearch::next(RecordReader& reader, const ItalianWord& word, ItalianWord::Match match)
{
    const BusyPointer hourglass(ui_);
    bool found = false;
    try {
        while (!found && reader.next()) {
            found = word.matches(reader.record().translation);
        }
    } catch (...) {
        remember(reader, match);
        throw;
    }
    remember(reader, match);
    return found;
}

void ItalianSearch::show(DictionaryEntry entry, ItalianWord::Match match)
{
    if (match == ItalianWord::Match::Whole) {
        last_.foundCodes = entry.signs;
        display_.clearPictures(0, kLastCleared);
    } else {
        entry.translation = upperCase(entry.translation);
        entry.transliteration = upperCase(entry.transliteration);
        entry.note = upperCase(entry.note);
    }
    shownSigns_ = entry.signs;
    display_.showFrom0(entry.signs);
    ui_.ask(translationBox(entry));
}

/// Closes the dictionary, but not when the user cancels a search for a part of the translations. A search
/// that was closed while one of its boxes was open ends with that box, and leaves alone what has been opened
/// since.
ItalianSearch::End ItalianSearch::pass(std::string_view word, ItalianWord::Match match)
{
    open();
    history_.rememberText(word);
    const std::shared_ptr<RecordReader> reader = reader_;
    const ItalianWord wanted(word, match);
    try {
        while (next(*reader, wanted, match)) {
            show(reader->record().decoded(), match);
            if (ui_.ask({.title = "Ricerca italiano-geroglifico",
                         .text = "Continua la ricerca",
                         .icon = Icon::Exclamation,
                         .buttons = Buttons::OkCancel}) == Button::Cancel ||
                reader_ != reader) {
                if (match == ItalianWord::Match::Whole) {
                    closeIf(reader);
                }
                return End::Cancelled;
            }
        }
    } catch (...) {
        closeIf(reader);
        throw;
    }
    closeIf(reader);
    return End::EndOfFile;
}

void ItalianSearch::closeIf(const std::shared_ptr<RecordReader>& reader)
{
    if (reader_ == reader) {
        close();
    }
}

void ItalianSearch::search(std::string_view word)
{
    (void)pass(word, ItalianWord::Match::Whole);
}

void ItalianSearch::searchSpecific()
{
    const auto word = ui_.input("CERCA", "Ricerca la parola");
    if (!word || pass(*word, ItalianWord::Match::Contains) == End::Cancelled) {
        return;
    }
    ui_.ask({.title = "SISTEMA:", .text = "Fine ricerca !", .icon = Icon::Exclamation});
    display_.clearPictures(0, kLastCleared);
}

void ItalianSearch::choose(std::string_view word)
{
    try {
        search(word);
    } catch (...) {
        close();
        throw;
    }
}

}  // namespace karvel

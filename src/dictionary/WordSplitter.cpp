#include "dictionary/WordSplitter.hpp"

#include <utility>

#include "base/SignCode.hpp"
#include "dictionary/Lookup.hpp"
#include "text/CodePage.hpp"

namespace karvel {

namespace {

MessageBox wordBox(const DictionaryEntry& entry)
{
    return {.title = "Traduzione",
            .text = "traduzione:\n1 - " + entry.translation + "\n2 - " + entry.transliteration +
                    "\nNote: " + entry.note,
            .icon = Icon::Information,
            .buttons = Buttons::OkCancel};
}

}  // namespace

std::optional<Word> longestWord(RecordReader& reader, std::string_view phrase)
{
    std::optional<Word> longest;
    std::size_t length = 0;
    Lookup beginnings(reader, MatchRule::beginningsOf(phrase));
    while (length < phrase.size() && beginnings.next()) {
        if (reader.record().signs.size() > length) {
            length = reader.record().signs.size();
            longest = Word{reader.record().decoded(), length};
        }
    }
    return longest;
}

bool TranslatedWords::mayBeShown(UserInterface& ui) const
{
    if (!lines_.empty()) {
        return true;
    }
    ui.ask({.title = "Sistema:",
            .text = "Questo menù visualizza i termini ricercati con il metodo DIVIDI IN PAROLE\n\n"
                    "Ora non vi sono termini presenti.",
            .icon = Icon::Information});
    return false;
}

std::optional<Word> WordSplitter::find(std::string_view phrase)
{
    const BusyPointer hourglass(ui_);
    RecordReader reader(openDictionary(files_, ui_));
    const auto remember = [this, phrase](const std::optional<DictionaryEntry>& entry) {
        if (entry) {
            last_.translation = upperCase(entry->translation);
            last_.note = entry->note;
            last_.phrase = phrase;
        }
    };
    std::optional<Word> word;
    try {
        word = longestWord(reader, phrase);
    } catch (...) {
        remember(reader.last());
        throw;
    }
    // The word that fits counts as the record read last, as if the candidates had been tried one by one.
    remember(word ? word->entry : reader.last());
    if (word) {
        word->entry.translation = last_.translation;
    }
    return word;
}

void WordSplitter::run(std::string_view phrase)
{
    for (;;) {
        const std::optional<Word> word = find(phrase);
        if (!word) {
            view_.clearCells();  // what is left stays in the phrase: it is not skipped
            return;
        }
        view_.showFound(word->entry.signs);
        if (ui_.ask(wordBox(word->entry)) == Button::Cancel) {
            return;
        }
        words_.add(word->entry.translation, word->entry.signs);
        if (word->length == phrase.size()) {
            return;  // kept: the last word stays on the display, as the phrase that it is
        }
        phrase.remove_prefix(word->length);
        view_.consume(word->length);
    }
}

}  // namespace karvel
